// How text images are made and drawn, and bitmap text, call by call.
#include "drawing/TexturedQuad.h"
#include "parts/TextRenderer.h"
#include "support/PretendedSystem.h"
#include "support/RecordedPlot.h"

#include <gmock/gmock.h>

#include <functional>

using namespace KivoDrawingTools;
using namespace KivoTest;
using testing::ElementsAreArray;

namespace {

std::string Number(int value) {
    return std::to_string(value);
}

Texts Parameters(const std::string& texture) {
    return {"glBindTexture(GL_TEXTURE_2D, " + texture + ")",
            "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT)",
            "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT)",
            "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
            "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR)"};
}

class TextCalls : public testing::Test {
protected:
    ~TextCalls() override {
        plotter.BeginGLOperation();
        ReleaseTextImage(&image);
        plotter.EndGLOperation();
    }

    std::unique_ptr<CallRecorder> Make(const char* text) {
        auto recorder =
            RecordStep(plotter, [&] { EXPECT_EQ(CreateTextImage(plotter.m_textRenderer, text, &image), 0); });
        recorder->Name(image.pixels, "pixels");
        return recorder;
    }
    // The part in which the picture is drawn, on a white square.
    Texts Drawing(const Texts& strings) const {
        const std::string side = Number(image.width);
        Texts calls = {"CreateCompatibleBitmap(dc, " + side + ", " + side + ")",
                       "SelectObject(memory dc, address)", "CreateSolidBrush(16777215)",
                       "FillRect(memory dc, 0, 0, " + side + ", " + side + ")"};
        Append(calls, strings);
        Append(calls, {"DeleteObject(address)", "SelectObject(memory dc, address)", "GetObjectA(address, 32)",
                       "GetBitmapBits(address, " + Number(image.width * image.height * 4) + ")",
                       "DeleteObject(address)"});
        return calls;
    }
    // The part in which the texture is filled: padded to powers of two, its padding cleared.
    Texts Upload(int paddedWidth, int paddedHeight) const {
        const std::string before = "glTexSubImage2D(GL_TEXTURE_2D, 0, ";
        const std::string after = ", GL_RGBA, GL_UNSIGNED_BYTE, ";
        Texts calls = Parameters(std::to_string(image.texture));
        calls.push_back("glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, " + Number(paddedWidth) + ", " +
                        Number(paddedHeight) + ", 0, GL_RGBA, GL_UNSIGNED_BYTE, null)");
        calls.push_back(before + "0, 0, " + Number(image.width) + ", " + Number(image.height) + after +
                        "pixels)");
        if (image.width < paddedWidth)
            calls.push_back(before + Number(image.width) + ", 0, " + Number(paddedWidth - image.width) +
                            ", " + Number(image.height) + after + "address)");
        if (image.height < paddedHeight)
            calls.push_back(before + "0, " + Number(image.height) + ", " + Number(paddedWidth) + ", " +
                            Number(paddedHeight - image.height) + after + "address)");
        calls.push_back("glBindTexture(GL_TEXTURE_2D, 0)");
        return calls;
    }

    RecordedPlot plot;
    CallProbe& plotter = plot.plotter;
    SKivoTexImage image;
};

} // namespace

// ---- Making

// The last word is measured with the terminating zero.
TEST_F(TextCalls, AnImageIsMeasuredWordByWordDrawnAndUploaded) {
    const auto recorder = Make("two  words");
    ASSERT_GT(image.width, 64);
    ASSERT_LE(image.width, 128);
    ASSERT_GT(image.height, 16);
    ASSERT_LE(image.height, 32);
    const std::string side = Number(image.width);
    Texts expected = {"glGenTextures(1)", "GetTextExtentPoint32A(memory dc, \"two  words\", 10)",
                      "GetTextExtentPoint32A(memory dc, \"two  \", 5)",
                      std::string("GetTextExtentPoint32A(memory dc, \"words") + '\0' + "\", 6)"};
    Append(expected,
           Drawing({"DrawTextA(memory dc, \"two  words\", 0, 0, " + side + ", " + side + ", 2057)"}));
    Append(expected, Upload(128, 32));
    EXPECT_THAT(recorder->Texts(), ElementsAreArray(expected));
    EXPECT_EQ(image.sMax, static_cast<float>(image.width) / 128.0f);
    EXPECT_EQ(image.tMax, static_cast<float>(image.height) / 32.0f);
}

TEST_F(TextCalls, AnImageUsedBeforeKeepsItsTexture) {
    Make("first");
    const unsigned int texture = image.texture;
    const auto recorder = Make("second");
    EXPECT_EQ(image.texture, texture);
    EXPECT_EQ(recorder->Count("glGenTextures"), 0);
    EXPECT_EQ(recorder->TextsOf({"glBindTexture"}).front(),
              "glBindTexture(GL_TEXTURE_2D, " + std::to_string(texture) + ")");
}

// Wider than 512 pixels: two lines, cut in the middle of the bytes.
TEST_F(TextCalls, AWideTextIsDrawnInTwoHalves) {
    const std::string text(100, 'm');
    const auto recorder = Make(text.c_str());
    ASSERT_EQ(image.width, 512);
    const std::string line = Number(image.height / 2), both = Number(image.height), half(50, 'm');
    EXPECT_THAT(recorder->TextsOf({"CreateCompatibleBitmap", "FillRect", "DrawTextA"}),
                ElementsAreArray(Texts{
                    "CreateCompatibleBitmap(dc, 512, 512)", "FillRect(memory dc, 0, 0, 512, 512)",
                    "DrawTextA(memory dc, \"" + half + "\", 0, 0, 512, " + line + ", 2057)",
                    "DrawTextA(memory dc, \"" + half + "\", 0, " + line + ", 512, " + both + ", 2057)"}));
    const Texts upload = recorder->TextsOf({"glTexImage2D", "glTexSubImage2D"});
    EXPECT_EQ(upload[1], "glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 512, " + both +
                             ", GL_RGBA, GL_UNSIGNED_BYTE, pixels)");
}

// The bytes of two letters in the one encoding are one letter in the other.
TEST_F(TextCalls, TwoLinesAreCutAtAWholeCharacterOfTheSystemsEncoding) {
    const std::string left(39, 'm'), right(39, 'm');
    const auto halves = [&](const std::string& middle) {
        std::vector<std::size_t> lengths;
        const auto recorder = Make((left + middle + right).c_str());
        for (const RecordedCall& call : recorder->Calls())
            if (call.name == "DrawTextA") lengths.push_back(call.values[1].text.size());
        return lengths;
    };
    using Lengths = std::vector<std::size_t>;
    EXPECT_EQ(halves("\xC3\xB6"), (Lengths{39, 41})) << "UTF-8";
    PretendedSystem other;
    other.codePage = 1252;
    EXPECT_EQ(halves("\xC3\xB6"), (Lengths{40, 40})) << "one byte a letter";
    other.codePage = 932;
    other.isLeadByte = [](BYTE byte) { return BOOL{byte == 0x83}; };
    EXPECT_EQ(halves("\xC3\xB6"), (Lengths{40, 40})) << "no lead byte among them";
    EXPECT_EQ(halves("\x83\x83"), (Lengths{39, 41})) << "a pair";
    EXPECT_EQ(halves("\x83\x83\x83\x83"), (Lengths{41, 41})) << "two pairs";
}

// On such systems the rows of an odd width end with a byte that belongs to no pixel.
TEST_F(TextCalls, ABitmapWithPaddedRowsGivesTheSamePixels) {
    for (const char* text : {"1", "12", "123", "Elevation", "a b"}) {
        Make(text);
        const std::size_t bytes = static_cast<std::size_t>(image.width) * image.height * 4;
        const std::vector<unsigned char> usual(image.pixels, image.pixels + bytes);
        PretendedSystem other;
        other.has24Bits = true;
        Make(text);
        EXPECT_EQ(std::vector<unsigned char>(image.pixels, image.pixels + bytes), usual)
            << text << ", " << image.width << " wide";
    }
}

TEST_F(TextCalls, WithoutARendererNothingIsCalled) {
    CallRecorder recorder;
    STextRenderer none;
    EXPECT_EQ(CreateTextImage(&none, "text", &image), -1);
    EXPECT_EQ(CreateTextImage(nullptr, "text", &image), -1);
    recorder.Stop();
    EXPECT_TRUE(recorder.Calls().empty());
    EXPECT_EQ(image.texture, 0u);
}

// ---- Drawing

// The whole range of texture coordinates, and so an upload at the exact size: on every call.
TEST_F(TextCalls, RenderTextTexUploadsOnEveryCallAndUsesTheWholeRange) {
    Make("text");
    const float p[4][3] = {{0, 0, 1}, {2, 0, 1}, {2, 0.5f, 1}, {0, 0.5f, 1}};
    Texts expected = {"glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)", "glEnable(GL_BLEND)",
                      "glDisable(GL_LIGHTING)", "glEnable(GL_TEXTURE_2D)"};
    Append(expected, Parameters(std::to_string(image.texture)));
    Append(expected,
           {"glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, " + Number(image.width) + ", " + Number(image.height) +
                ", 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels)",
            "glColor4f(1, 1, 1, 1)", "glBegin(GL_QUADS)", "glTexCoord2f(0, 0)", "glVertex3fv({0, 0, 1})",
            "glTexCoord2f(1, 0)", "glVertex3fv({2, 0, 1})", "glTexCoord2f(1, 1)", "glVertex3fv({2, 0.5, 1})",
            "glTexCoord2f(0, 1)", "glVertex3fv({0, 0.5, 1})", "glEnd()", "glEnable(GL_LIGHTING)",
            "glDisable(GL_BLEND)", "glDisable(GL_TEXTURE_2D)", "glBindTexture(GL_TEXTURE_2D, 0)"});
    for (int call = 0; call < 2; ++call) {
        const auto recorder =
            RecordStep(plotter, [&] { plotter.RenderTextTex(p[0], p[1], p[2], p[3], &image); });
        recorder->Name(image.pixels, "pixels");
        EXPECT_THAT(recorder->Texts(), ElementsAreArray(expected)) << call;
    }
}

// The used part of the padded texture, without an upload.
TEST_F(TextCalls, DrawTexturedQuadUsesThePartOfTheTextureThatIsUsed) {
    Make("text");
    const float center[] = {1, 2, 3}, right[] = {0, 1, 0}, up[] = {-1, 0, 0};
    const float w = static_cast<float>(image.width * 0.5), h = static_cast<float>(image.height * 0.25);
    const auto corner = [&](float alongRight, float alongUp) {
        const float v[] = {1 - alongUp * h, 2 + alongRight * w, 3};
        return CallText("glVertex3fv", {Array(v, 3)});
    };
    const auto coordinate = [](float s, float t) { return CallText("glTexCoord2f", {Num(s), Num(t)}); };
    const Texts expected = {"glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT)",
                            "glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)",
                            "glEnable(GL_BLEND)",
                            "glDisable(GL_LIGHTING)",
                            "glEnable(GL_TEXTURE_2D)",
                            "glBindTexture(GL_TEXTURE_2D, " + std::to_string(image.texture) + ")",
                            "glColor4f(1, 1, 1, 1)",
                            "glBegin(GL_QUADS)",
                            coordinate(0, 0),
                            corner(-0.5f, -0.5f),
                            coordinate(image.sMax, 0),
                            corner(0.5f, -0.5f),
                            coordinate(image.sMax, image.tMax),
                            corner(0.5f, 0.5f),
                            coordinate(0, image.tMax),
                            corner(-0.5f, 0.5f),
                            "glEnd()",
                            "glBindTexture(GL_TEXTURE_2D, 0)",
                            "glPopAttrib()"};
    const auto recorder = RecordStep(plotter, [&] { DrawTexturedQuad(center, right, up, 0.5, 0.25, image); });
    EXPECT_THAT(recorder->Texts(), ElementsAreArray(expected));
}

TEST_F(TextCalls, AnImageWithoutTextureOrPixelsCallsNothing) {
    const float p[3] = {};
    const auto draw = [&](const SKivoTexImage* which) {
        return RecordStep(plotter,
                          [&] {
                              plotter.RenderTextTex(p, p, p, p, which);
                              if (which) DrawTexturedQuad(p, p, p, 1, 1, *which);
                          })
            ->Calls()
            .size();
    };
    EXPECT_EQ(draw(&image), 0u);
    EXPECT_EQ(draw(nullptr), 0u);
    Make("text");
    unsigned char* const pixels = image.pixels;
    image.pixels = nullptr;
    EXPECT_EQ(draw(&image), 0u);
    image.pixels = pixels;
    const unsigned int texture = image.texture;
    image.texture = 0;
    EXPECT_EQ(draw(&image), 0u);
    image.texture = texture;
}

// At the top, a pixel of the image on a pixel of the screen, in front of the camera's own matrix; where
// title and plot are not both even or both odd, half a pixel to the left of the middle.
TEST_F(TextCalls, TheTitleHangsFromTheTopEdge) {
    plot.Fill();
    const SKivoTexImage& title = *plotter.m_plotTitleImage;
    const double width = (plotter.m_viewRight - plotter.m_viewLeft) * title.width / plotter.m_plotViewport[2];
    const double height =
        (plotter.m_viewTop - plotter.m_viewBottom) * title.height / plotter.m_plotViewport[3];
    const bool isBetween = (title.width + plotter.m_plotViewport[2]) % 2 == 1;
    const double shift = isBetween ? width / title.width / 2 : 0;
    const float left = static_cast<float>(-width * 0.5 - shift), top = static_cast<float>(plotter.m_viewTop);
    const float right = static_cast<float>(width * 0.5 - shift);
    const float bottom = static_cast<float>(plotter.m_viewTop - height);
    const auto recorder = RecordStep(plotter, [&] { plotter.RenderPlotName(); });
    const Texts calls = recorder->Texts();
    EXPECT_THAT(Texts(calls.begin(), calls.begin() + 3),
                ElementsAreArray(Texts{"glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", "glLoadIdentity()"}));
    EXPECT_THAT(Texts(calls.end() - 2, calls.end()),
                ElementsAreArray(Texts{"glPopMatrix()", "glMatrixMode(GL_MODELVIEW)"}));
    ASSERT_EQ(recorder->Draws().size(), 1u);
    const std::array<double, 3> expected[] = {
        {left, bottom, 1}, {right, bottom, 1}, {right, top, 1}, {left, top, 1}};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(recorder->Draws()[0].vertices[i].position, expected[i]) << i;
    EXPECT_EQ(recorder->Draws()[0].state.boundTexture, static_cast<int>(title.texture));
}

// The label of the traced point is made, drawn and deleted in each frame.
TEST_F(TextCalls, TheTraceLabelLivesForOneFrame) {
    EXPECT_TRUE(RecordStep(plotter, [&] { plotter.RenderTraceLegend(); })->Calls().empty());
    plot.Fill();
    const auto recorder = RecordStep(plotter, [&] { plotter.RenderTraceLegend(); });
    const Texts calls = WithImagesInOneLine(recorder->Texts());
    const std::string texture = calls[0].substr(calls[0].rfind(' ') + 1);
    EXPECT_EQ(calls[0], "image \"(1.000, 0.500, 0.250)\" as texture " + texture);
    EXPECT_EQ(calls.back(), "glDeleteTextures(1, " + texture + ")");

    // Bottom left, a hundredth of the width in from both edges, pixel for pixel measured by the width.
    const double margin = static_cast<float>((plotter.m_viewRight - plotter.m_viewLeft) * 0.01);
    EXPECT_THAT(recorder->TextsOf({"glTranslatef"}),
                testing::ElementsAre(CallText(
                    "glTranslatef", {Num(static_cast<float>(plotter.m_viewLeft) + margin),
                                     Num(static_cast<float>(plotter.m_viewBottom) + margin), Num(0)})));
    ASSERT_EQ(recorder->Draws().size(), 1u);
    const RecordedDraw& draw = recorder->Draws()[0];
    EXPECT_EQ(std::to_string(draw.state.boundTexture), texture);
    EXPECT_EQ(draw.vertices[0].position, (std::array<double, 3>{0, 0, 0}));
    const double pixel = (plotter.m_viewRight - plotter.m_viewLeft) / plotter.m_plotViewport[2];
    const Texts sizes = recorder->TextsOf({"CreateCompatibleBitmap"});
    const double width = recorder->Calls().empty() ? 0 : draw.vertices[1].position[0] / pixel;
    EXPECT_NEAR(width, std::stod(sizes[0].substr(sizes[0].rfind(' ') + 1)), 1e-3);
}

// ---- Bitmap text

TEST_F(TextCalls, BitmapTextCallsAListForEachByte) {
    const std::string base = std::to_string(plotter.m_fontListBase);
    const auto lists = [&](const std::string& position, int count) {
        Texts calls;
        if (!position.empty()) calls.push_back("glRasterPos3f(" + position + ")");
        Append(calls, {"glPushAttrib(GL_LIST_BIT)", "glListBase(" + base + ")",
                       "glCallLists(" + Number(count) + ", GL_UNSIGNED_BYTE, text)", "glPopAttrib()"});
        return calls;
    };
    const char* const text = "abcd";
    const auto record = [&](const std::function<void()>& action) {
        const auto recorder = RecordStep(plotter, action);
        recorder->Name(text, "text");
        return recorder->Texts();
    };
    EXPECT_THAT(record([&] { plotter.RenderText(1, 2, 3, text, 2); }), ElementsAreArray(lists("1, 2, 3", 2)));
    EXPECT_THAT(record([&] { plotter.RenderText(1, 2, 3, text); }), ElementsAreArray(lists("1, 2, 3", 4)));
    EXPECT_THAT(record([&] { plotter.RenderFarText(1, 2, text, 3); }),
                ElementsAreArray(lists("1, 2, 0.99", 3)));
    EXPECT_THAT(record([&] { plotter.RenderFarText(1, 2, text); }), ElementsAreArray(lists("1, 2, 0.99", 4)));
    EXPECT_THAT(record([&] { plotter.RenderNearText(1, 2, text, 3); }),
                ElementsAreArray(lists("1, 2, 0", 3)));
    EXPECT_THAT(record([&] { plotter.RenderNearText(1, 2, text); }), ElementsAreArray(lists("1, 2, 0", 4)));

    // In model space no raster position is set.
    const double* const t = plotter.m_volumeTranslate;
    Texts expected = {"glMatrixMode(GL_MODELVIEW)",
                      "glPushMatrix()",
                      "glLoadIdentity()",
                      CallText("glTranslated", {Num(t[0]), Num(t[1]), Num(t[2])}),
                      CallText("glMultMatrixd", {Array(plotter.m_rotationMatrix, 16)}),
                      "glTranslatef(1, 2, 3)"};
    Append(expected, lists("", 4));
    Append(expected, {"glPopMatrix()", "glMatrixMode(GL_MODELVIEW)"});
    EXPECT_THAT(record([&] { plotter.Render3DText(1, 2, 3, text, 4); }), ElementsAreArray(expected));
}

// ---- Titles

TEST_F(TextCalls, ATitleBeforeOnCreateIsStoredWithoutAnImage) {
    CallProbe early;
    const auto recorder = Record(early, [&] {
        early.SetPlotTitle("title");
        early.SetXAxisTitle("x");
    });
    EXPECT_THAT(recorder->Texts(),
                ElementsAreArray(Texts{"wglMakeCurrent(null, null)", "wglMakeCurrent(null, null)"}));
    EXPECT_STREQ(early.GetPlotTitle(), "title");
    EXPECT_STREQ(early.GetXAxisTitle(), "x");
}
