// Frames drawn beside the window: in its context, but larger than it, and averaged.
#pragma once

#include "KivoFunctionPlotter.h"
#include "KivoPicture.h"

#include "computing/DrawingStop.h"
#include "TextSet.h"
#include "ViewState.h"
#include "window_system/WindowSystem.h"

#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

/// What pictures and smooth frames of a plotter are drawn with, kept from one to the next: where nothing
/// changes between them, nothing is allocated. The context must be current at its end, or gone.
struct SPictureStore {
    SPictureStore() = default;
    ~SPictureStore();
    SPictureStore(const SPictureStore&) = delete;
    SPictureStore& operator=(const SPictureStore&) = delete;

    HGLRC context = nullptr; ///< the plotter's, in which the texts are
    HWND window = nullptr;   ///< what is drawn to
    SIZE size = {};          ///< of it
    SIZE drawn = {};         ///< of all that it was made for, in one piece or in tiles
    GLint largestViewport[2] = {};
    GLint largestTexture = 0;
    GLfloat lineWidths[2] = {}; ///< narrowest and widest
    GLenum readOrder = GL_RGBA; ///< in which the driver reads back without turning every pixel
    TextSet texts;
    std::vector<unsigned char> strip; ///< rows of what has been drawn
    std::vector<unsigned short> sums; ///< of the columns of some of them
    std::vector<unsigned char> row;   ///< of a picture on white ground
    std::vector<unsigned char> frame; ///< a smooth window's, bottom row first
    SIZE frameSize = {};
    DrawingStop* stop = nullptr; ///< asked while something is drawn that may be stopped
};

/// A picture that is asked for.
struct PicturePlan {
    int width; ///< in pixels
    int height;
    float scale;        ///< by which the plotter's own pixel scale is multiplied
    int smoothing;      ///< by how many pixels of each side one is averaged: 1 to 4
    bool isTransparent; ///< its ground
    bool isLaidOut;     ///< as the plotter is at present; otherwise anew, for the picture's size
    bool isMoving;      ///< shows as much of the surface as a frame of a drag
};

/// Where its pixels go, four bytes each.
struct PictureTarget {
    unsigned char* top;     ///< first byte of the top row
    std::ptrdiff_t rowStep; ///< bytes from there to the row below
    GLenum order;           ///< GL_RGBA or GL_BGRA
};

/// A rectangle of a picture, y upwards.
struct PicturePart {
    int x;
    int y;
    int width;
    int height;
    int factor; ///< so many times as large it is drawn
};

/// Has what is drawn ask whether to go on, as long as it lives.
class StopScope {
public:
    /// @param request  empty: nobody is asked
    StopScope(CKivoFunctionPlotter& plotter, const SKivoStopRequest& request);
    ~StopScope();
    StopScope(const StopScope&) = delete;
    StopScope& operator=(const StopScope&) = delete;

    bool WasStopped() const { return m_stop.WasWanted(); }

private:
    SPictureStore* m_store = nullptr; ///< null: nobody is asked
    DrawingStop m_stop;
};

/// Puts the plotter's own view back, whatever ends the scope.
class ViewScope {
public:
    explicit ViewScope(CKivoFunctionPlotter& plotter);
    ~ViewScope();
    ViewScope(const ViewScope&) = delete;
    ViewScope& operator=(const ViewScope&) = delete;

private:
    CKivoFunctionPlotter& m_plotter;
    const ViewState m_view;
};

/// Reads a part of a picture from the lower left corner of the current surface, as it has been drawn.
void ReadPart(SPictureStore& store, const PictureTarget& target, int pictureHeight, const PicturePart& part);

/// Reaches what a plotter draws. All functions leave it as it was.
struct PictureAccess {
    static HDC Dc(const CKivoFunctionPlotter& plotter);
    static HGLRC Context(const CKivoFunctionPlotter& plotter);
    /// Of the window's client area; false without a context or a window, or where that is empty.
    static bool WindowSize(const CKivoFunctionPlotter& plotter, int& width, int& height);
    static int WindowSmoothing(const CKivoFunctionPlotter& plotter);
    static float PixelScale(const CKivoFunctionPlotter& plotter);
    /// Draws one frame into the current surface.
    static void Draw(CKivoFunctionPlotter& plotter);

    /// Draws a picture beside the window.
    /// @return false, with the failure recorded, where that is not possible
    static bool DrawBeside(CKivoFunctionPlotter& plotter, const PicturePlan& plan,
                           const PictureTarget& target);

    /// Draws a frame of the window's size beside it, for PutFrame.
    static bool DrawFrameBeside(CKivoFunctionPlotter& plotter, int smoothing);
    /// Puts the frame into the window, on which the context must be current.
    static void PutFrame(CKivoFunctionPlotter& plotter);

    static SPictureStore& Store(CKivoFunctionPlotter& plotter);
    /// To be asked by what takes long; null where nobody is.
    static DrawingStop* Stop(const CKivoFunctionPlotter& plotter);
    /// Has the next picture make its texts anew; the context must be current.
    static void ForgetTexts(CKivoFunctionPlotter& plotter);
    /// Gives back all that is kept.
    static void ReleaseStore(CKivoFunctionPlotter& plotter);

private:
    class Ground;

    static unsigned int DetailOf(const CKivoFunctionPlotter& plotter, const PicturePlan& plan);
    static bool IsFrame(const CKivoFunctionPlotter& plotter, const PicturePlan& plan);
    static void DrawAsFrame(CKivoFunctionPlotter& plotter, const PicturePlan& plan,
                            const PictureTarget& target);
    static float WidestLine(const CKivoFunctionPlotter& plotter);

    static void DrawPart(CKivoFunctionPlotter& plotter, const PicturePlan& plan, const PictureTarget& target,
                         const PicturePart& part);
    static void DrawParts(CKivoFunctionPlotter& plotter, const PicturePlan& plan, const PictureTarget& target,
                          int factor);
};

} // namespace KivoDrawingTools
