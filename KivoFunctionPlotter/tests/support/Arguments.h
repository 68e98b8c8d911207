// Where the arguments of calls come from.
#pragma once

#include "KivoPlatform.h"

#include <list>
#include <memory>
#include <string>
#include <vector>

namespace KivoDrawingTools {

/// Numbers that stand for time or memory, so that a source chooses large ones with care.
enum class Amount { ticks, contours, digits, textHeight, pictureSize };

/// A grid as SetData takes it.
struct GridArguments {
    float* points;
    unsigned int columns, rows, columnStride, rowStride, components;
};

/// Points as curves and measure groups take them.
struct PointArguments {
    float* points;
    unsigned int count, floatsPerPoint;
};

/// A source of arguments. Each draw is told what a sensible caller would pass. What is handed out by pointer
/// stays for as long as the source does, which is to outlive the plotter.
class Arguments {
public:
    Arguments() = default;
    virtual ~Arguments() = default;
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    virtual HWND Window() = 0; ///< to draw in; may be null
    virtual bool Flag(bool plausible) = 0;
    virtual float Float(float plausible) = 0;
    virtual int Int(int plausible) = 0; ///< a size, a distance, the index of a curve
    virtual unsigned int Unsigned(unsigned int plausible) = 0;
    virtual unsigned int GroupIndex() = 0; ///< of a measure group
    virtual int Of(Amount amount, int plausible) = 0;
    virtual unsigned int KeyState(unsigned int plausible) = 0;
    virtual POINT Point(POINT plausible) = 0;
    virtual unsigned long Color(unsigned long plausible) = 0; ///< 0x00BBGGRR
    virtual const float* Rgba(const float* plausible) = 0;    ///< four floats
    virtual const char* Text(const char* plausible) = 0;
    virtual GridArguments GridToTakeOver() = 0; ///< the points are from new[]
    virtual GridArguments GridToRefer() = 0;
    virtual PointArguments Points() = 0;

protected:
    /// An array of no more than these numbers, so that a sanitizer sees every access beyond.
    float* Keep(const std::vector<float>& numbers);
    const char* Keep(std::string text);

private:
    std::list<std::unique_ptr<float[]>> m_arrays;
    std::list<std::string> m_texts;
};

/// What a sensible caller passes. There is no window, since who calls with these has created the plotter
/// before.
class PlausibleArguments : public Arguments {
public:
    HWND Window() override { return nullptr; }
    bool Flag(bool plausible) override { return plausible; }
    float Float(float plausible) override { return plausible; }
    int Int(int plausible) override { return plausible; }
    unsigned int Unsigned(unsigned int plausible) override { return plausible; }
    unsigned int GroupIndex() override { return 0; }
    int Of(Amount, int plausible) override { return plausible; }
    unsigned int KeyState(unsigned int plausible) override { return plausible; }
    POINT Point(POINT plausible) override { return plausible; }
    unsigned long Color(unsigned long plausible) override { return plausible; }
    const float* Rgba(const float* plausible) override { return plausible; }
    const char* Text(const char* plausible) override { return plausible; }
    GridArguments GridToTakeOver() override; ///< a hill
    GridArguments GridToRefer() override;    ///< four points
    PointArguments Points() override;        ///< two points
};

/// Numbers and texts at which arithmetic or memory ends, the same kind wherever one is drawn.
class BadArguments : public PlausibleArguments {
public:
    /// Every number and text of any kind has had its turn after so many rounds.
    static constexpr unsigned int roundCount = 10;
    explicit BadArguments(unsigned int round) : m_round(round) {}

    float Float(float plausible) override;
    int Int(int plausible) override;
    unsigned int Unsigned(unsigned int plausible) override;
    unsigned int GroupIndex() override;
    int Of(Amount amount, int plausible) override;
    unsigned int KeyState(unsigned int plausible) override;
    POINT Point(POINT plausible) override;
    unsigned long Color(unsigned long plausible) override;
    const float* Rgba(const float* plausible) override;
    const char* Text(const char* plausible) override;
    GridArguments GridToTakeOver() override;
    GridArguments GridToRefer() override;
    PointArguments Points() override;

private:
    /// A hill, or a part of one, with bad numbers here and there.
    std::vector<float> BadGrid(GridArguments& grid);

    const unsigned int m_round;
};

} // namespace KivoDrawingTools
