// What OnCreate calls, in its fixed order and with its constants.
#include "parts/KivoGradientColorRuler.h"
#include "parts/TextRenderer.h"
#include "support/RecordedPlot.h"
#include "support/TestSurfaces.h"
#include "window_system/linux/NativeWindow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

using namespace KivoDrawingTools;
using namespace KivoTest;
using testing::ElementsAreArray;

namespace {

// Flags; then RGBA, 32 bits with 8 each of red at 16, green at 8 and blue at 0, no alpha; accumulation of 64
// bits, 16 each without alpha; 32 bits of depth, 8 of stencil, nothing else.
const std::string sizeAndVersion = "40, 1, ";
const std::string formatAfterFlags =
    ", 0, 32, 8, 16, 8, 8, 8, 0, 0, 0, 64, 16, 16, 16, 0, 32, 8, 0, 0, 0, 0, 0, 0";

class CreationCalls : public testing::Test {
protected:
    std::unique_ptr<CallRecorder> RecordCreation(bool accelerated, int fontSize = 10) {
        return Record(plotter, [&] {
            EXPECT_EQ(plotter.OnCreate(window.Handle(), 400, 300, fontSize, accelerated), 0);
        });
    }

    // The lines from the first to the last of these, both included.
    static Texts Between(const Texts& texts, const std::string& first, const std::string& last) {
        const auto begin = std::find(texts.begin(), texts.end(), first);
        const auto end = std::find(begin, texts.end(), last);
        return end != texts.end() ? Texts(begin, end + 1) : Texts();
    }

    TestWindow window{WindowKind::offscreen, 400, 300};
    CallProbe plotter;
};

} // namespace

TEST_F(CreationCalls, BindTheWindowAndSetTheStateFirst) {
    const Texts calls = RecordCreation(true)->Texts();
    const Texts expected = {
        "GetDC(window)",
        "ChoosePixelFormat(dc, " + sizeAndVersion + "2147487781" + formatAfterFlags + ")",
        "SetPixelFormat(dc, " + std::to_string(window.Handle()->Format()) + ")",
        "wglCreateContext(dc)",
        "wglMakeCurrent(dc, context)",
        "glClearColor(1, 0.992157, 0.913725, 1)",
        "glClearDepth(1)",
        "glEnable(GL_DEPTH_TEST)",
        "glEnable(GL_LIGHTING)",
        "glLightModelf(GL_LIGHT_MODEL_LOCAL_VIEWER, 0)",
        "glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1)",
        "glEnable(GL_COLOR_MATERIAL)",
        "glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE)",
        "glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, {0.11, 0.11, 0.11, 1})",
        "glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, {0.2, 0.2, 0.2, 1})",
        "glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, {0.11, 0.11, 0.11, 1})",
        "glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 0)",
        "glLightfv(GL_LIGHT0, GL_POSITION, {0.8, 1, 1, 1})",
        "glLightfv(GL_LIGHT0, GL_AMBIENT, {0.65, 0.65, 0.65, 1})",
        "glLightfv(GL_LIGHT0, GL_DIFFUSE, {0.2, 0.2, 0.2, 1})",
        "glLightfv(GL_LIGHT0, GL_SPECULAR, {0.4, 0.4, 0.4, 1})",
        "glEnable(GL_LIGHT0)",
        "glShadeModel(GL_SMOOTH)",
        "glGenLists(256)",
    };
    EXPECT_THAT(Texts(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(expected.size())),
                ElementsAreArray(expected));
}

TEST_F(CreationCalls, TheSoftwareFormatDiffersInItsFlagsAlone) {
    const Texts formats = RecordCreation(false)->TextsOf({"ChoosePixelFormat", "SetPixelFormat"});
    ASSERT_EQ(formats.size(), 2u);
    EXPECT_EQ(formats[0], "ChoosePixelFormat(dc, " + sizeAndVersion + "2147483717" + formatAfterFlags + ")");
}

TEST_F(CreationCalls, ThenMakeBothFonts) {
    const auto recorder = RecordCreation(true, 12);
    const int lists = static_cast<int>(plotter.m_fontListBase);
    // Named by its address, which the heap may have used again for the text font.
    const auto selection = std::find_if(recorder->Calls().begin(), recorder->Calls().end(),
                                        [](const RecordedCall& call) { return call.name == "SelectObject"; });
    ASSERT_NE(selection, recorder->Calls().end());
    const void* const bitmapFont = selection->Pointer(1);
    const std::string font = bitmapFont == plotter.m_textRenderer->m_font ? "text font" : "address";
    const Texts expected = {
        // 10 points at 96 dots per inch; weight 500, default character set, antialiased, modern with default
        // pitch
        "glGenLists(256)",
        "GetDeviceCaps(dc, 90)",
        "MulDiv(10, 96, 72)",
        "CreateFontIndirectA(-13, 0, 0, 0, 500, 0, 0, 0, 1, 0, 0, 4, 48, \"Arial\")",
        "SelectObject(dc, " + font + ")",
        "wglUseFontBitmapsA(dc, 0, 256, " + std::to_string(lists) + ")",
        "SelectObject(dc, saved font)",
        "DeleteObject(" + font + ")",
        // 12 points, bold
        "CreateCompatibleDC(dc)",
        "GetDeviceCaps(memory dc, 90)",
        "MulDiv(12, 96, 72)",
        "CreateFontIndirectA(-16, 0, 0, 0, 700, 0, 0, 0, 1, 0, 0, 4, 48, \"MS Gothic\")",
        "SelectObject(memory dc, text font)",
        "GetTextMetricsA(memory dc)",
    };
    EXPECT_THAT(Between(recorder->Texts(), "glGenLists(256)", "GetTextMetricsA(memory dc)"),
                ElementsAreArray(expected));
}

// The bitmap font is deleted; the font before it comes back.
TEST_F(CreationCalls, TheBitmapFontIsSelectedForTheListsAlone) {
    const auto recorder = RecordCreation(true);
    auto next = [&, i = std::size_t{0}](const std::string& name) mutable -> const RecordedCall& {
        while (recorder->Calls().at(i).name != name)
            ++i;
        return recorder->Calls()[i++];
    };
    const void* const arial = next("SelectObject").Pointer(1);
    const void* const before = next("SelectObject").Pointer(1);
    EXPECT_NE(arial, before);
    EXPECT_EQ(next("DeleteObject").Pointer(0), arial);
}

TEST_F(CreationCalls, ThenLabelTheRulersAndApplyTheStartView) {
    const Texts calls = WithImagesInOneLine(RecordCreation(true)->Texts());
    Texts expected = {"GetTextMetricsA(memory dc)"};
    for (const CKivoGradientColorRuler* ruler :
         {plotter.m_xColorRuler, plotter.m_yColorRuler, plotter.m_zColorRuler})
        for (int label = 0; label < 11; ++label)
            expected.push_back("image \"0.000\" as texture " +
                               std::to_string(ruler->m_labels[label].texture));
    expected.push_back("glViewport(0, 0, 0, 1)"); // the size is not known yet
    EXPECT_THAT(Between(calls, expected.front(), expected.back()), ElementsAreArray(expected));
}

TEST_F(CreationCalls, EndWithTheStartViewAndTheLayoutInBracketsOfTheirOwn) {
    const Texts calls = RecordCreation(true)->Texts();
    const Texts view = Between(calls, "glViewport(0, 0, 0, 1)", "wglMakeCurrent(dc, null)");
    EXPECT_THAT(NamesOf(view), ElementsAreArray({
                                   "glViewport",     "glMatrixMode",   "glLoadIdentity", "glOrtho",
                                   "glMatrixMode",   "glMatrixMode",   "glPushMatrix",   "glLoadIdentity",
                                   "glRotatef",      "glMultMatrixd",  "glPopMatrix",
                                   "glMatrixMode", // the tilt of the iso view
                                   "glMatrixMode",   "glLoadIdentity", "glTranslated",   "glMultMatrixd",
                                   "glScaled",       "glTranslated",
                                   "glMatrixMode", // the model-view matrix
                                   "wglMakeCurrent",
                               }));
    EXPECT_EQ(view[8], "glRotatef(-10, 1, 0, 0)");

    // Then the layout, which takes the view volume twice: fitted, then with the plot's aspect.
    const auto bracket = std::find(calls.rbegin(), calls.rend(), "wglMakeCurrent(dc, context)");
    const Texts layout(bracket.base() - 1, calls.end());
    EXPECT_EQ(layout.back(), "wglMakeCurrent(dc, null)");
    EXPECT_EQ(std::count(layout.begin(), layout.end(), "glViewport(64, 0, 336, 300)"), 2);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "wglMakeCurrent(dc, context)"), 2);
}

TEST_F(CreationCalls, ANullWindowCallsNothingButTheLayout) {
    const auto recorder = Record(plotter, [&] { EXPECT_EQ(plotter.OnCreate(nullptr, 400, 300, true), -1); });
    EXPECT_THAT(recorder->OperationTexts(),
                ElementsAreArray({"wglMakeCurrent(null, null)", "wglMakeCurrent(null, null)"}));
    const auto shortest = Record(plotter, [&] { EXPECT_EQ(plotter.OnCreate(nullptr, true), -1); });
    EXPECT_TRUE(shortest->Calls().empty());
}

TEST_F(CreationCalls, ConstructionCallsNothing) {
    CallRecorder recorder;
    const CallProbe another;
    recorder.Stop();
    EXPECT_TRUE(recorder.Calls().empty());
}

TEST_F(CreationCalls, ADerivedClassLightsTheSurfaceInItsOwnWay) {
    struct Unlit : CallProbe {
        int InitLighting() override {
            isAsked = true;
            isCurrent = wglGetCurrentContext() == m_hGLRC;
            return 0;
        }
        bool isAsked = false;
        bool isCurrent = false;
    } unlit;
    const auto recorder = Record(unlit, [&] { unlit.OnCreate(window.Handle(), true); });
    EXPECT_TRUE(unlit.isAsked);
    EXPECT_TRUE(unlit.isCurrent);
    EXPECT_EQ(recorder->Count("glLightfv") + recorder->Count("glMaterialfv"), 0);
}
