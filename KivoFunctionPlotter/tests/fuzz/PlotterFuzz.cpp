// The plotter: any sequence of public calls with any arguments, on small grids in an off-screen window.
//
// The first byte of an input says what is done around the calls. Then come records, each two bytes that
// choose the member and what the member takes for its arguments. A member has its place among the two bytes'
// numbers by its name, so that inputs keep their meaning when others join the table.
#include "FuzzArguments.h"
#include "KivoWindow.h"
#include "support/PublicMembers.h"
#include "window_system/WindowSystem.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace {

using namespace KivoDrawingTools;
using KivoTest::FuzzInput;

constexpr int windowWidth = 120;
constexpr int windowHeight = 90;

void Require(bool holds, const std::string& what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what.c_str());
    std::abort();
}

HWND Window() {
    static const HWND window = CreateOffscreenWindow(windowWidth, windowHeight);
    Require(window != nullptr, "an off-screen window can be made");
    return window;
}

// ---- Choosing a member

using MembersByPlace = std::map<std::uint16_t, const PublicMember*>;

std::uint16_t Place(const std::string& name) { // FNV-1a, both halves of it
    std::uint32_t hash = 2166136261u;
    for (const char letter : name)
        hash = (hash ^ static_cast<std::uint8_t>(letter)) * 16777619u;
    return static_cast<std::uint16_t>(hash ^ hash >> 16);
}

MembersByPlace AllMembers() {
    // What the table can't say: a title is set to what has been got.
    static const PublicMember ownTitle = {"SetPlotTitle(own)", ContextUse::bracketed,
                                          [](PlotterProbe& plotter, Arguments&) {
                                              plotter.SetPlotTitle(plotter.GetPlotTitle());
                                              return 0;
                                          }};
    MembersByPlace members = {{Place(ownTitle.name), &ownTitle}};
    for (const PublicMember& member : PublicMembers())
        Require(members.emplace(Place(member.name), &member).second, member.name + " has a place of its own");
    return members;
}

/// The member at the place, or at the next one that has any.
const PublicMember& Choose(FuzzInput& input) {
    static const MembersByPlace members = AllMembers();
    const auto place = static_cast<std::uint16_t>(input.Byte() << 8);
    const auto found = members.lower_bound(static_cast<std::uint16_t>(place | input.Byte()));
    return *(found != members.end() ? found : members.begin())->second;
}

// ---- What holds after every call

void CheckGroups(PlotterProbe& plotter) {
    const unsigned int count = plotter.GetNumMeasureGroups();
    std::string name;
    for (unsigned int i = 0; i < count; ++i) {
        Require(plotter.GetMeasureGroupName(i, &name) == 0, "a group has a name");
        const int first = plotter.GetMeasureGroupIndexByName(name);
        Require(first >= 0 && static_cast<unsigned int>(first) <= i, "a group is found by its name");
        Require(plotter.GetMeasureGroupSize(i) > 0, "a group has points");
    }
    Require(plotter.GetMeasureGroupName(count, &name) == -2, "there are no more groups than it says");
}

void Call(const PublicMember& member, PlotterProbe& plotter, Arguments& arguments) {
    const bool isCallers = member.context == ContextUse::callers;
    const bool mayBeCurrent =
        wglGetCurrentContext() != nullptr || member.context == ContextUse::staysCurrent; // else it stays so
    if (isCallers) plotter.BeginGLOperation();
    const int result = member.run(plotter, arguments);
    if (isCallers) plotter.EndGLOperation();
    Require(member.IsDocumented(result), member.name + " gives a result that it documents");
    Require(mayBeCurrent || wglGetCurrentContext() == nullptr, "no context stays current");
    Require(std::string(plotter.GetPlotTitle()).size() <= 80000, "titles are as long as they were set");
    CheckGroups(plotter);
}

// Whatever has happened, data that make sense are drawn again once the plot is created anew.
void CheckItStillWorks(PlotterProbe& plotter) {
    static float points[] = {0, 0, 0, 1, 0, 1, 0, 1, 1, 1, 1, 0};
    Require(plotter.OnDestroy() == 0, "OnDestroy succeeds in the end");
    Require(plotter.OnCreate(Window(), windowWidth, windowHeight, true) == 0, "OnCreate succeeds in the end");
    plotter.SetDataReference(points, 2, 2, 1, 2, 3);
    Require(plotter.Renderscene() == 0, "a frame succeeds in the end");
    Require(wglGetCurrentContext() == nullptr, "no context is current in the end");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr int mostCalls = 60;
    FuzzInput input(data, size);
    FuzzArguments arguments(input, Window(), windowWidth, windowHeight);
    PlotterProbe plotter;
    const unsigned int frame = input.Below(16); // around the calls
    if (frame != 0) plotter.OnCreate(Window(), windowWidth, windowHeight, true);
    for (int i = 0; i < mostCalls && !input.IsEmpty(); ++i)
        Call(Choose(input), plotter, arguments);
    if (frame < 4) CheckItStillWorks(plotter);
    return 0;
}
