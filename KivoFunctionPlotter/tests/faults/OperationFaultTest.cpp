// Every operation of the window system made to fail in turn: the documented result, nothing lost, and a
// plotter that goes on working.
#include "parts/KivoGradientColorRuler.h"
#include "support/EglFault.h"
#include "support/Holdings.h"
#include "support/OperationFaults.h"
#include "support/PublicOperations.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <thread>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

// The operation to fail after the n-th. Labels are made alike, by twelve operations each: beyond the first
// ones every seventh operation fails, each at another place in its label.
long Next(long n) {
#if defined(__SANITIZE_ADDRESS__)
    return n < 40 ? n + 1 : n + 29; // checked code is slow; the optimised build tries every seventh
#else
    return n < 40 ? n + 1 : n + 7;
#endif
}

// The how manieth of its name the n-th operation is; 0 where there was none.
int Occurrence(const OperationFault& fault, long n) {
    const auto& names = fault.Operations();
    if (fault.Failed().empty()) return 0;
    return static_cast<int>(std::count(names.begin(), names.begin() + n, fault.Failed()));
}

// Text whose making failed must not show as a black box: a letter's ink leaves most of its image clear.
bool IsTextOrNothing(const SKivoTexImage& image) {
    if (!image.pixels) return true;
    const int area = image.width * image.height;
    int ink = 0;
    for (int i = 0; i < area; ++i)
        if (image.pixels[4 * i + 3] != 0) ++ink;
    return ink < area / 2;
}

void ExpectLabelsToBeText(const CallProbe& plotter) {
    for (const CKivoGradientColorRuler* ruler :
         {plotter.m_xColorRuler, plotter.m_yColorRuler, plotter.m_zColorRuler})
        for (unsigned int i = 0; ruler->m_labels && i <= ruler->m_divisionCount; ++i)
            EXPECT_TRUE(IsTextOrNothing(ruler->m_labels[i])) << i;
}

void ExpectToWorkIn(const TestWindow& window, CallProbe& plotter) {
    EXPECT_EQ(plotter.OnCreate(window.Handle(), 120, 90, true), 0);
    plotter.SetData(NewHill(6, 5), 6, 5, 1, 6, 3);
    EXPECT_EQ(plotter.Renderscene(), 0);
    EXPECT_TRUE(IsOpenGlInOrder(plotter));
}

} // namespace

// ---- OnCreate

namespace {

// A host draws and forwards messages all the same.
void ExpectToKeepTheReason(CallProbe& plotter) {
    const std::string reason = LastWindowError();
    EXPECT_NE(reason, "");
    for (const PublicOperation& operation : PublicOperations()) {
        operation.run(plotter);
        EXPECT_EQ(reason, LastWindowError()) << operation.name;
        wglMakeCurrent(nullptr, nullptr);
    }
    EXPECT_NE(plotter.Renderscene(), 0);
    EXPECT_EQ(reason, LastWindowError());
    plotter.OnDestroy();
    EXPECT_EQ(reason, LastWindowError());
}

// The result when the n-th operation of a name fails. Other operations leave out a font or a label.
int ResultOfCreation(const std::string& name, int n) {
    const bool isNeeded = name == "GetDC" || name == "SetPixelFormat" || name == "wglCreateContext" ||
                          name == "wglUseFontBitmapsA" ||
                          (name == "wglMakeCurrent" && n == 1); // the font lists want the context
    return isNeeded ? -1 : 0;
}

// Calls of SelectObject: the bitmap font and the font before it, the text font, then each text's bitmap and
// the one before that. What cannot be taken out of its device context cannot be deleted either: it is the
// only thing lost.
bool IsObjectKept(const std::string& name, int n) {
    return name == "SelectObject" && (n == 2 || (n > 3 && n % 2 == 1));
}

} // namespace

TEST(OperationFaults, InOnCreateKeepTheirWordsWhateverTheHostDoesThen) {
    {
        CallProbe plotter;
        EXPECT_EQ(AttachX11Window(1, ":60000"), nullptr);
        EXPECT_EQ(plotter.OnCreate(nullptr, 120, 90, true), -1);
        EXPECT_NE(std::string(LastWindowError()).find("cannot open display"), std::string::npos);
        EXPECT_EQ(plotter.Renderscene(), frameInvalidValue);
        ExpectToKeepTheReason(plotter);
    }
    std::thread([] { // where nothing has failed before
        EXPECT_EQ(CKivoFunctionPlotter().Renderscene(), frameWithoutPlot);
        EXPECT_NE(std::string(LastWindowError()), "");
    })
        .join();
    std::set<std::string> needed; // the first operations of all
    for (long n = 1; n <= 20; ++n) {
        const TestWindow window(WindowKind::offscreen, 120, 90);
        CallProbe plotter;
        OperationFault fault(n);
        const int result = plotter.OnCreate(window.Handle(), 120, 90, true);
        fault.Stop();
        SCOPED_TRACE(fault.Failed());
        if (result == 0) continue;
        needed.insert(fault.Failed());
        EXPECT_NE(std::string(LastWindowError()).find(fault.Failed() + ": made to fail"), std::string::npos)
            << LastWindowError();
        if (!plotter.m_hGLRC) ExpectToKeepTheReason(plotter);
    }
    EXPECT_EQ(needed.size(), 5U);
}

TEST(OperationFaults, OfADriverThatMakesNoContextSayWhatToDo) {
    const TestWindow window(WindowKind::offscreen, 120, 90);
    CallProbe plotter;
    {
        const EglFault fault;
        EXPECT_EQ(plotter.OnCreate(window.Handle(), 120, 90, true), -1);
    }
    EXPECT_EQ(GetLastError(), ERROR_GEN_FAILURE);
    EXPECT_NE(std::string(LastWindowError()).find("cannot make an OpenGL context"), std::string::npos)
        << LastWindowError();
    EXPECT_NE(std::string(LastWindowError()).find("install an OpenGL driver"), std::string::npos)
        << LastWindowError();
    ExpectToWorkIn(window, plotter);
}

TEST(OperationFaults, InOnCreateGiveTheDocumentedResultAndLoseNothing) {
    WarmUp();
    bool hasFailed = true;
    for (long n = 1; hasFailed; n = Next(n)) {
        Holdings before;
        {
            TestWindow window(WindowKind::offscreen, 120, 90), another(WindowKind::offscreen, 120, 90);
            CallProbe plotter;
            OperationFault fault(n);
            const int result = plotter.OnCreate(window.Handle(), 120, 90, true);
            fault.Stop();
            hasFailed = !fault.Failed().empty();
            SCOPED_TRACE(fault.Failed() + ", operation " + std::to_string(n));
            const int nth = Occurrence(fault, n);
            EXPECT_EQ(result, ResultOfCreation(fault.Failed(), nth));
            if (result != 0) {
                EXPECT_NE(std::string(LastWindowError()), "");
            }
            ExpectLabelsToBeText(plotter);
            if (IsObjectKept(fault.Failed(), nth)) {
                Uncounted([&] { return ++before.resources["object"]; });
                before.blocks +=
                    nth == 2 ? 2 : 3; // the font, or the bitmap and its pixels; and a list's entry
            }
            plotter.EndGLOperation();

            // It can be used, destroyed and created again.
            plotter.SetData(NewHill(6, 5), 6, 5, 1, 6, 3);
            if (n < 40) plotter.OnDraw();
            EXPECT_EQ(plotter.OnDestroy(), 0);
            if (n < 40) ExpectToWorkIn(another, plotter);
        }
        EXPECT_TRUE(AreEqual(Holdings(), before)) << n;
    }
}

// Formats come in two steps: the nearest, else the first one.
TEST(OperationFaults, WithoutTheNearestFormatTheFirstOneIsTaken) {
    const TestWindow window(WindowKind::offscreen, 120, 90);
    CallProbe plotter;
    CallRecorder recorder;
    OperationFault fault(2); // ChoosePixelFormat
    EXPECT_EQ(plotter.OnCreate(window.Handle(), 120, 90, true), 0);
    fault.Stop();
    recorder.Stop();
    NameFields(recorder, plotter);
    const Texts formats = recorder.TextsOf({"DescribePixelFormat", "SetPixelFormat"});
    EXPECT_EQ(formats, (Texts{"DescribePixelFormat(dc, 1, 40)", "SetPixelFormat(dc, 1)"}));
}

TEST(OperationFaults, ADeviceContextWithoutFormatsIsRefused) {
    const TestWindow window(WindowKind::offscreen, 120, 90);
    CallProbe plotter;
    OperationFault fault(0);
    EXPECT_EQ(plotter.SetDCPixelFormat(nullptr, true), -1);
    EXPECT_EQ(fault.Operations(), (Texts{"ChoosePixelFormat", "DescribePixelFormat"}));
}

// As it is documented: a failure of the font lists leaves the context current, for the caller to see to.
TEST(OperationFaults, AFailureOfTheFontListsLeavesTheContextCurrent) {
    const TestWindow window(WindowKind::offscreen, 120, 90);
    CallProbe plotter;
    long lists = 0;
    {
        const TestWindow first(WindowKind::offscreen, 120, 90);
        CallProbe another;
        OperationFault fault(0);
        another.OnCreate(first.Handle(), true);
        const auto& names = fault.Operations();
        lists = std::find(names.begin(), names.end(), "wglUseFontBitmapsA") - names.begin() + 1;
    }
    OperationFault fault(lists);
    EXPECT_EQ(plotter.OnCreate(window.Handle(), true), -1);
    EXPECT_EQ(fault.Failed(), "wglUseFontBitmapsA");
    EXPECT_EQ(wglGetCurrentContext(), plotter.m_hGLRC);
    fault.Stop();
    EXPECT_EQ(plotter.OnDestroy(), 0);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

// Zero would say that the frame is shown.
TEST(OperationFaults, AFrameThatIsNotShownWithoutAReasonIsUnexplained) {
    RecordedPlot plot;
    OperationFault listed(0);
    EXPECT_EQ(plot.plotter.Renderscene(), frameShown);
    listed.Stop();
    const auto& names = listed.Operations();
    const long presenting = std::find(names.begin(), names.end(), "SwapBuffers") - names.begin() + 1;
    OperationFault fault(presenting, ERROR_SUCCESS);
    EXPECT_EQ(plot.plotter.Renderscene(), frameUnexplained);
    EXPECT_EQ(fault.Failed(), "SwapBuffers");
    fault.Stop();
    EXPECT_EQ(plot.plotter.Renderscene(), frameShown);
}

// Labels of which one has failed are not taken for those that were there before.
TEST(OperationFaults, LabelsOfTheLegendThatFailedAreMadeAgain) {
    RecordedPlot plot;
    plot.Fill();
    CKivoGradientColorRuler& ruler = *plot.plotter.m_zColorRuler;
    const int width = ruler.m_labels[0].width;
    const CurrentContext context(plot.plotter);
    for (long n = 1; n <= 12; ++n) {
        OperationFault fault(n);
        ruler.m_precision += 4;
        ruler.BuildLabels();
        fault.Stop();
        SCOPED_TRACE(fault.Failed());
        ruler.m_precision -= 4;
        ruler.BuildLabels();
        for (unsigned int i = 0; i <= ruler.m_divisionCount; ++i)
            EXPECT_NE(ruler.m_labels[i].pixels, nullptr) << i;
        EXPECT_EQ(ruler.m_labels[0].width, width);
    }
}

// ---- OnDestroy

TEST(OperationFaults, InOnDestroyGiveTheDocumentedResult) {
    WarmUp();
    bool hasFailed = true;
    for (long n = 1; hasFailed; n = Next(n)) {
        const Holdings before;
        {
            const TestWindow another(WindowKind::offscreen, 120, 90);
            RecordedPlot plot;
            plot.Fill();
            OperationFault fault(n);
            const int result = plot.plotter.OnDestroy();
            fault.Stop();
            hasFailed = !fault.Failed().empty();
            SCOPED_TRACE(fault.Failed() + ", operation " + std::to_string(n));
            EXPECT_EQ(result, fault.Failed() == "wglDeleteContext" ? -1 : 0);
            EXPECT_EQ(wglGetCurrentContext(), nullptr);
            EXPECT_EQ(plot.plotter.m_hGLRC, nullptr);
            EXPECT_EQ(plot.plotter.OnDestroy(), 0) << "there is nothing left to fail";
            ExpectToWorkIn(another, plot.plotter);
        }
        EXPECT_TRUE(AreEqual(Holdings(), before)) << n;
    }
}

// ---- All other members

namespace {

bool HasOperations(const PublicOperation& member, CallProbe& plotter) {
    OperationFault fault(0);
    member.run(plotter);
    fault.Stop();
    plotter.EndGLOperation();
    return !fault.Operations().empty();
}

// The result of a member when the n-th operation of a name fails in it.
int ResultOf(const std::string& member, const std::string& failed, int n) {
    const bool isFirstBinding = failed == "wglMakeCurrent" && n == 1;
    if (member == "Renderscene()" || member == "RenderMovedScene()") {
        // Where nothing could be drawn, nothing can be presented; the first failure is the reason of both.
        return failed == "SwapBuffers" || isFirstBinding ? frameRefused : frameShown;
    }
    // Without the view's matrices there is no line of sight.
    if (member == "Trace(point)") return isFirstBinding ? 1 : 0;
    // A picture needs the window's size and the context.
    if (member.rfind("CapturePicture", 0) == 0 || member.rfind("TakeView", 0) == 0)
        return failed == "GetClientRect" || isFirstBinding ? -1 : 0;
    const std::set<std::string> needing = {"SetView",   "SetViewAngles", "ResetView",         "TurnView",
                                           "ShiftView", "ZoomView",      "RemoveMeasureGroup"};
    return needing.count(member.substr(0, member.find('('))) != 0 && isFirstBinding ? -1 : 0;
}

// A style, a legend and a range of colours are refused where a text or a font cannot be made, and so is a
// picture in another style. Some selections and bindings only undo others, and letters of lists have a font
// in any case.
bool IsResultOfStyle(const std::string& failed, int result) {
    const std::set<std::string> needed = {
        "CreateCompatibleDC", "wglUseFontBitmapsA", "CreateCompatibleBitmap", "CreateSolidBrush",
        "FillRect",           "GetObjectA",         "GetBitmapBits"};
    const std::set<std::string> partlyNeeded = {"SelectObject", "CreateFontIndirectA", "wglMakeCurrent"};
    if (partlyNeeded.count(failed) != 0) return result == 0 || result == -1;
    return result == (needed.count(failed) != 0 ? -1 : 0);
}

// Of an axis all labels are made or none, with the fonts that there are. A text that could not be measured
// has no size, which does no harm to a word.
bool IsResultOfAxis(const std::string& failed, int result) {
    const std::set<std::string> needed = {"CreateCompatibleBitmap", "CreateSolidBrush", "FillRect",
                                          "GetObjectA", "GetBitmapBits"};
    const std::set<std::string> partlyNeeded = {"SelectObject", "wglMakeCurrent", "GetTextExtentPoint32A"};
    if (partlyNeeded.count(failed) != 0) return result == 0 || result == -1;
    return result == (needed.count(failed) != 0 ? -1 : 0);
}

// As a style, which measures no text anew; of a text's two measures only that of the whole is needed.
bool IsResultOfLegend(const std::string& failed, int result) {
    if (failed == "GetTextExtentPoint32A") return result == 0 || result == -1;
    return IsResultOfStyle(failed, result);
}

// Beside the window there is another one, and its texts are kept: the second of two pictures needs none.
bool IsResultOfPicture(const std::string& failed, int result) {
    if (failed == "GetClientRect") return result == -1;
    return IsResultOfStyle(failed, result) || failed == "GetDC" || result == 0;
}

// Whether the result is one that the member may give when the n-th operation of a name fails in it.
bool IsResult(const PublicOperation& member, const std::string& failed, int n, int result) {
    if (member.name.rfind("SetStyle", 0) == 0) return IsResultOfStyle(failed, result);
    if (member.name.rfind("SetAxis", 0) == 0) return IsResultOfAxis(failed, result);
    for (const char* const name : {"SetColorRange", "SetLegend", "OnDensityChanged", "LabelContours",
                                   "SetMeasurePointNames", "SetListedTexts"})
        if (member.name.rfind(name, 0) == 0) return IsResultOfLegend(failed, result);
    if (member.name.find("Picture(options)") != std::string::npos) return IsResultOfPicture(failed, result);
    return result == ResultOf(member.name, failed, n);
}

} // namespace

TEST(OperationFaults, InAnyMemberGiveTheDocumentedResultAndLoseNothing) {
    WarmUp();
    RecordedPlot counted, plot; // one for all members: making it takes most of the time
    counted.Fill();
    plot.Fill();
    CallProbe& plotter = plot.plotter;
    for (const PublicOperation& member : PublicOperations()) {
        if (member.context == ContextUse::callers || !HasOperations(member, counted.plotter)) continue;
        bool hasFailed = true;
        for (long n = 1; hasFailed; n = Next(n)) {
            SCOPED_TRACE(member.name + ", operation " + std::to_string(n));
            OperationFault fault(n);
            const int result = member.run(plotter);
            fault.Stop();
            hasFailed = !fault.Failed().empty();
            SCOPED_TRACE(fault.Failed());
            const int nth = Occurrence(fault, n);
            EXPECT_TRUE(IsResult(member, fault.Failed(), nth, result)) << result;
            ExpectLabelsToBeText(plotter);
            plotter.EndGLOperation();
            EXPECT_TRUE(IsOpenGlInOrder(plotter));
        }
        EXPECT_EQ(plotter.Renderscene(), 0);
    }
}
