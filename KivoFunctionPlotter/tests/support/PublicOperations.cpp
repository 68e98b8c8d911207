#include "PublicOperations.h"

#include "AllocationFaults.h"
#include "TestSurfaces.h"

namespace KivoTest {

using namespace KivoDrawingTools;

namespace {

constexpr POINT inPlot = {230, 150};
constexpr POINT besideIt = {236, 146};

/// The host's own memory does not fail.
class ReliableArguments : public PlausibleArguments {
public:
    GridArguments GridToTakeOver() override {
        const WithoutAllocationFaults reliable;
        return PlausibleArguments::GridToTakeOver();
    }
};

PublicOperation Operation(const PublicMember& member) {
    return {member.name, member.context, member.repetition, [&member](CallProbe& plotter) {
                ReliableArguments arguments;
                return member.run(plotter, arguments);
            }};
}

PublicOperation Drag(const char* name, unsigned int keys) {
    return {name, ContextUse::bracketed, Repetition::changes, [keys](CallProbe& plotter) {
                plotter.OnRButtonDown(keys, inPlot);
                plotter.OnMouseMove(keys, besideIt);
                plotter.OnRButtonUp(0, besideIt);
                return 0;
            }};
}

int TraceByMouse(CallProbe& plotter) {
    plotter.Trace(true);
    plotter.OnMouseMove(0, inPlot);
    return 0;
}

std::vector<PublicOperation> AllOperations() {
    std::vector<PublicOperation> all;
    for (const PublicMember& member : PublicMembers())
        if (member.context != ContextUse::lifetime) all.push_back(Operation(member));
    all.push_back(Drag("turning", MK_RBUTTON));
    all.push_back(Drag("panning", MK_RBUTTON | MK_SHIFT));
    all.push_back(Drag("zooming", MK_RBUTTON | MK_CONTROL));
    all.push_back({"tracing", ContextUse::bracketed, Repetition::changes, TraceByMouse});
    return all;
}

} // namespace

float* NewHill(unsigned int columns, unsigned int rows) {
    const WithoutAllocationFaults reliable;
    return HillSurface(columns, rows).NewArray();
}

const std::vector<PublicOperation>& PublicOperations() {
    static const std::vector<PublicOperation> all = AllOperations();
    return all;
}

} // namespace KivoTest
