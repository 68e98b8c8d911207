// Gradients and the digits of their legends.
#include "Bindings.h"

namespace KivoPython {

namespace {

using Ends = void (Class::*)(float const*, float const*);
using End = void (Class::*)(float const*);
using PackedEnds = void (Class::*)(unsigned long, unsigned long);
using PackedEnd = void (Class::*)(unsigned long);

// Some of the members leave the context current.
template <typename... Arguments>
auto Unbound(void (Class::*member)(Arguments...)) {
    return [member](Plotter& self, const typename ArgumentOf<Arguments>::Taken&... arguments) {
        self.Call([&](OpenPlotter& plotter) {
            (plotter.*member)(ArgumentOf<Arguments>::Pass(arguments)...);
            plotter.LeaveContext();
        });
    };
}

// Both kinds of colours of each member.
struct Gradient {
    const char* both;
    Ends setBoth;
    PackedEnds setBothPacked;
    const char* start;
    End setStart;
    PackedEnd setStartPacked;
    const char* end;
    End setEnd;
    PackedEnd setEndPacked;
};

constexpr Gradient gradients[] = {
    {"SetGradientColor", &Class::SetGradientColor, &Class::SetGradientColor, "SetGradientStartColor",
     &Class::SetGradientStartColor, &Class::SetGradientStartColor, "SetGradientEndColor",
     &Class::SetGradientEndColor, &Class::SetGradientEndColor},
    {"SetXGradientColor", &Class::SetXGradientColor, &Class::SetXGradientColor, "SetXGradientStartColor",
     &Class::SetXGradientStartColor, &Class::SetXGradientStartColor, "SetXGradientEndColor",
     &Class::SetXGradientEndColor, &Class::SetXGradientEndColor},
    {"SetYGradientColor", &Class::SetYGradientColor, &Class::SetYGradientColor, "SetYGradientStartColor",
     &Class::SetYGradientStartColor, &Class::SetYGradientStartColor, "SetYGradientEndColor",
     &Class::SetYGradientEndColor, &Class::SetYGradientEndColor},
    {"SetZGradientColor", &Class::SetZGradientColor, &Class::SetZGradientColor, "SetZGradientStartColor",
     &Class::SetZGradientStartColor, &Class::SetZGradientStartColor, "SetZGradientEndColor",
     &Class::SetZGradientEndColor, &Class::SetZGradientEndColor},
};

} // namespace

void BindColor(Members& members) {
    for (const Gradient& gradient : gradients)
        members.Add(gradient.both, Unbound(gradient.setBoth), "start_rgba"_a, "end_rgba"_a)
            .Add(gradient.both, Unbound(gradient.setBothPacked), "start_color"_a, "end_color"_a)
            .Add(gradient.start, Unbound(gradient.setStart), "rgba"_a)
            .Add(gradient.start, Unbound(gradient.setStartPacked), "color"_a)
            .Add(gradient.end, Unbound(gradient.setEnd), "rgba"_a)
            .Add(gradient.end, Unbound(gradient.setEndPacked), "color"_a);
    members
        .Do("SetGradientColorRuleFloatingPointPrecision", &Class::SetGradientColorRuleFloatingPointPrecision,
            "precision"_a)
        .Get("GetGradientColorRuleFloatingPointPrecision",
             &Class::GetGradientColorRuleFloatingPointPrecision);
}

} // namespace KivoPython
