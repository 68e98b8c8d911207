#include "Options.h"

#include "CommandTable.h"
#include "Failure.h"
#include "GdalReader.h"
#include "HelpWords.h"
#include "Language.h"
#include "ManualPage.h"
#include "Numbers.h"
#include "PlotScene.h"
#include "SettingTable.h"

#include <CLI/CLI.hpp>
#include <KivoVersion.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>
#include <utility>

namespace KivoViewer {

namespace {

constexpr double minZoom = 0.01;
constexpr double maxZoom = 1000.0;

// What stands below the options.
std::string Footer() {
    std::string text = Translate("CommandLine", "Without data the viewer shows a sample terrain.") + "\n\n" +
                       Translate("CommandLine", "Mouse:") + '\n';
    const std::vector<InputUse> mouse = MouseUses(), keys = KeyUses();
    std::size_t width = 0;
    for (const auto* const uses : {&mouse, &keys})
        for (const InputUse& use : *uses)
            width = std::max(width, WidthOf(use.input));
    const auto list = [&text, width](const std::vector<InputUse>& uses) {
        for (const InputUse& use : uses)
            text += "  " + use.input + std::string(width + 2 - WidthOf(use.input), ' ') + use.effect + '\n';
    };
    list(mouse);
    text += '\n' + Translate("CommandLine", "Keys:") + '\n';
    list(keys);
    return text + '\n' +
           Translate("CommandLine", "Exit status: 0 for success, 2 with one line that says what is wrong.");
}

// Where the command line goes before it is checked as a whole.
struct Words {
    std::string x;
    std::string y;
    std::string size;
    std::string traceAt;
    std::string scale;
    std::string azimuth;
    std::string elevation;
    std::string zoom;
    std::string region;
    std::string columns;
    std::string decimalMark;
    std::string method;
    std::string cell;
    std::string radius;
    std::string profile;
    std::vector<std::string> opacities;
    std::vector<std::string> surfaceColors;
    bool wantsManualPage = false;
    std::map<std::string, std::string> settings; // by their names
};

const char* ValueName(const Setting& setting) {
    constexpr const char* names[] = {"",       "COUNT", "NUMBER", "TEXT",
                                     "COLOUR", "NAME",  "MIN:MAX"}; // as the kinds of fields
    return names[setting.field.index()];
}

// The window has them in a list.
std::string HelpWithChoices(const Setting& setting) {
    if (setting.choices.empty()) return setting.help;
    return Filled(Translate("CommandLine", "%1: %2"), setting.help, Listed(setting.choices));
}

// A flag for each way; the help shows the one that is not the case by itself.
void DescribeToggle(CLI::App& app, const Setting& setting, std::string& text) {
    const bool isOn = TextOf(setting, PlotSettings()) == "on";
    const auto turn = [&text, &setting](const char* way) {
        if (!text.empty())
            throw Failure(Filled(Translate("CommandLine", "%1 and %2 exclude each other"),
                                 "--" + setting.name, "--no-" + setting.name));
        text = way;
    };
    app.add_flag_callback(
           "--" + setting.name, [turn] { turn("on"); }, setting.help)
        ->group(isOn ? "" : setting.section);
    app.add_flag_callback(
           "--no-" + setting.name, [turn] { turn("off"); }, setting.without)
        ->group(isOn ? setting.section : "");
}

void DescribeSettings(CLI::App& app, Words& words) {
    for (const Setting& setting : AllSettings()) {
        std::string& text = words.settings[setting.name];
        if (IsToggle(setting))
            DescribeToggle(app, setting, text);
        else
            app.add_option("--" + setting.name, text, HelpWithChoices(setting))
                ->type_name(ValueName(setting))
                ->group(setting.section);
    }
}

void ParseSettings(const CLI::App& app, const Words& words, Options& options) {
    for (const Setting& setting : AllSettings()) {
        const std::string option = "--" + setting.name;
        const std::string& text = words.settings.at(setting.name);
        if (app.count(option) == 0 && text.empty()) continue;
        try {
            SetFromText(setting, text, options.settings);
        } catch (const Failure& failure) {
            throw Failure(option + ": " + failure.what());
        }
        options.settingNames.push_back(setting.name);
    }
}

// How a picture is drawn.
void DescribePicture(CLI::App& app, CLI::Option& picture, PictureFormat& format, Words& words) {
    app.add_option("--dpi", format.dpi,
                   Translate("CommandLine", "Dots per inch that texts, lines and points are sized for (96)"))
        ->type_name("DPI")
        ->needs(&picture)
        ->check(CLI::Range(1, maxResolution).description(""));
    app.add_option("--scale", words.scale,
                   Translate("CommandLine", "Factor on the size of texts, lines and points (1)"))
        ->type_name("FACTOR")
        ->needs(&picture);
    app.add_option("--smoothing", format.smoothing,
                   Translate("CommandLine", "How much finer it is drawn, for soft edges: 1 to 4 (2)"))
        ->type_name("FACTOR")
        ->needs(&picture)
        ->check(CLI::Range(1, maxSmoothing).description(""));
    app.add_flag("--transparent", format.isTransparent, Translate("CommandLine", "Leave the background out"))
        ->needs(&picture);
}

// How files are read.
void DescribeReading(CLI::App& app, Options& options, Words& words) {
    app.add_flag("--list-formats", options.listsFormats,
                 Translate("CommandLine", "List the formats of files that can be read and written"));
    app.add_option("--band", options.reading.band, Translate("CommandLine", "Band of a raster (1)"))
        ->type_name("NUMBER")
        ->check(CLI::Range(1, 65535).description(""));
    app.add_option("--region", words.region, Translate("CommandLine", "Part of the files that alone is read"))
        ->type_name("X0:X1:Y0:Y1");
    app.add_option("--columns", words.columns,
                   Translate("CommandLine",
                             "Columns of x, y and z in tables, by numbers or names; all: a matrix of values"))
        ->type_name("X,Y,Z");
    app.add_option("--decimal", words.decimalMark,
                   Translate("CommandLine", "Decimal mark of tables: point or comma"))
        ->type_name("MARK");
    app.add_option("--grid", words.method,
                   Translate("CommandLine",
                             "How a grid is made of scattered points: linear, nearest or inverse (linear)"))
        ->type_name("METHOD");
    app.add_option("--cell", words.cell,
                   Translate("CommandLine", "Cell size of such a grid (from the density of the points)"))
        ->type_name("NUMBER");
    app.add_option(
           "--radius", words.radius,
           Translate(
               "CommandLine",
               "How far a point reaches in such a grid; the longest edge of a triangle where it is linear"))
        ->type_name("NUMBER");
}

// Heights along a line.
void DescribeProfile(CLI::App& app, Options& options, Words& words) {
    app.add_option("--profile", words.profile,
                   Translate("CommandLine", "Line over the plane of x and y whose heights are shown"))
        ->type_name("X0:Y0:X1:Y1");
    app.add_option(
           "--profile-csv", options.profileTable,
           Translate("CommandLine",
                     "Write the heights along that line as a table of distance, x, y, z, and z2 and so on of "
                     "other surfaces, or - for the standard output; needs no display"))
        ->type_name("FILE");
}

// From where a plot is shown.
void DescribeViewpoint(CLI::App& app, Words& words) {
    app.add_option(
           "--azimuth", words.azimuth,
           Translate("CommandLine",
                     "Side from which the 3-D plot is seen: 0 beyond the large end of X, 90 of Y (45)"))
        ->type_name("DEGREES");
    app.add_option("--elevation", words.elevation,
                   Translate("CommandLine",
                             "Height from which the 3-D plot is seen, -90 to 90: 90 from above (25.26)"))
        ->type_name("DEGREES");
    app.add_option("--zoom", words.zoom,
                   Translate("CommandLine", "How many times as large the plot is shown (1)"))
        ->type_name("FACTOR");
}

// How surfaces look.
void DescribeSurfaces(CLI::App& app, Words& words) {
    app.add_option(
           "--opacity", words.opacities,
           Translate(
               "CommandLine",
               "Opacity of a surface, 0 to 1; may be repeated, for the files in their order (1, then 0.7)"))
        ->type_name("NUMBER")
        ->allow_extra_args(false);
    app.add_option("--surface-color", words.surfaceColors,
                   Translate("CommandLine",
                             "Colour of a surface, or values where these give the colours; may be "
                             "repeated, for the files in their order (values, then one colour each)"))
        ->type_name("COLOUR")
        ->allow_extra_args(false);
}

// What is opened as a whole, and opened again.
void DescribeSession(CLI::App& app, CLI::Option& file, CLI::Option& function, CLI::Option& picture,
                     Options& options) {
    app.add_option(
           "--session", options.sessionFile,
           Translate("CommandLine",
                     "Files, settings and view that the window has saved; what else is given counts more"))
        ->type_name("FILE")
        ->excludes(&file)
        ->excludes(&function);
    app.add_flag("--watch", options.watches,
                 Translate("CommandLine", "Read the files again when they change"))
        ->excludes(&picture);
}

void DescribePoints(CLI::App& app, CLI::Option& picture, Options& options, Words& words) {
    app.add_option("--points", options.pointFiles,
                   Translate("CommandLine", "Measure points, x y z in each line; may be repeated, a group "
                                            "for each file or each name in it"))
        ->type_name("FILE")
        ->allow_extra_args(false);
    app.add_option("--curve", options.curveFiles,
                   Translate("CommandLine", "Points of a curve, x y z in each line; may be repeated"))
        ->type_name("FILE")
        ->allow_extra_args(false);
    app.add_option("--trace-at", words.traceAt,
                   Translate("CommandLine", "Trace the surface at this pixel of the picture"))
        ->type_name("X,Y")
        ->needs(&picture);
}

void Describe(CLI::App& app, Options& options, Words& words) {
    app.set_version_flag("--version", std::string("kivo-viewer ") + KIVO_VERSION,
                         Translate("CommandLine", "Display program version information and exit"));
    app.add_option("--language", options.language,
                   Translate("CommandLine", "Language of the program: en, de or ja (the one of the desktop)"))
        ->type_name("NAME");
    app.footer(Footer());
    auto* const file = app.add_option(
        "FILE", options.files,
        HasGdal()
            ? Translate("CommandLine",
                        "Grids of points, the second and so on over the first: ESRI ASCII grid, Surfer grid, "
                        "points, matrix, or what GDAL reads; - for the standard input")
            : Translate("CommandLine", "Grids of points, the second and so on over the first: ESRI ASCII "
                                       "grid, Surfer grid, points, matrix; - for the standard input"));
    auto* const function = app.add_option("--function", options.function,
                                          Translate("CommandLine", "Formula such as \"sin(x)*cos(y)\""));
    auto* const picture =
        app.add_option("--picture", options.picture,
                       Translate("CommandLine", "Write the plot to a file of the format that its name ends "
                                                "in, or - for PNG to the standard output; needs no display"));
    app.add_option("--minus", options.minus,
                   Translate("CommandLine", "Grid that is subtracted from the first, at its points"))
        ->type_name("FILE");
    file->type_name("...");
    function->type_name("FORMULA")->excludes(file);
    DescribeReading(app, options, words);
    app.add_option("--x", words.x, Translate("CommandLine", "Values of x, -3:3:61 without"))
        ->type_name("FROM:TO:COUNT")
        ->needs(function);
    app.add_option("--y", words.y, Translate("CommandLine", "Values of y, -3:3:61 without"))
        ->type_name("FROM:TO:COUNT")
        ->needs(function);
    picture->type_name("FILE");
    app.add_flag("--manual-page", words.wantsManualPage)->group(""); // for the installation
    app.add_option(
           "--size", words.size,
           Translate("CommandLine", "Size of the picture or the window's plot in pixels, 1200x800 without"))
        ->type_name("WIDTHxHEIGHT");
    app.add_option("--mode", options.settings.mode,
                   Translate("CommandLine", "0: 3-D plot, 1: XY, 2: YZ, 3: XZ"))
        ->type_name("MODE")
        ->check(CLI::Range(0, 3).description(""));
    DescribeViewpoint(app, words);
    DescribeSurfaces(app, words);
    DescribePoints(app, *picture, options, words);
    DescribePicture(app, *picture, options.format, words);
    DescribeProfile(app, options, words);
    DescribeSession(app, *file, *function, *picture, options);
}

int ParseLength(const std::string& text) {
    const auto length = ParseCount(text);
    const bool fits = length && *length >= 1 && *length <= maxPictureSize;
    return fits ? static_cast<int>(*length) : 0;
}

void ParseSize(const std::string& text, Options& options) {
    const std::size_t cross = text.find('x');
    if (cross != std::string::npos) {
        options.width = ParseLength(text.substr(0, cross));
        options.height = ParseLength(text.substr(cross + 1));
    }
    if (cross == std::string::npos || options.width == 0 || options.height == 0)
        throw Failure("--size: " +
                      Filled(Translate("CommandLine", "expected WIDTHxHEIGHT of 1 to %1 each, found %2"),
                             maxPictureSize, text));
}

PixelPosition ParsePosition(const std::string& text) {
    const std::size_t comma = text.find(',');
    const auto x = ParseCount(text.substr(0, comma));
    const auto y = comma == std::string::npos ? std::nullopt : ParseCount(text.substr(comma + 1));
    if (!x || !y || *x >= maxPictureSize || *y >= maxPictureSize)
        throw Failure("--trace-at: " +
                      Filled(Translate("CommandLine", "expected X,Y in pixels, found %1"), text));
    return {static_cast<int>(*x), static_cast<int>(*y)};
}

double NumberWithin(const std::string& option, const std::string& text, double least, double most) {
    const auto number = ParseNumber(text);
    if (!number || !(*number >= least) || *number > most)
        throw Failure(option + ": " +
                      Filled(Translate("CommandLine", "expected a number from %1 to %2, found %3"),
                             FormatRounded(static_cast<float>(least)),
                             FormatRounded(static_cast<float>(most)), text));
    return *number;
}

// Fine pictures have large texts already.
void ParseScale(const std::string& text, PictureFormat& format) {
    format.scale = NumberWithin("--scale", text, minScale, maxScale);
    const double most = maxPixelScale * usualResolution / format.dpi;
    if (format.PixelScale() > maxPixelScale)
        throw Failure("--scale: " +
                      Filled(Translate("CommandLine", "at most %1 with %2 dots per inch, found %3"),
                             FormatRounded(static_cast<float>(most)), format.dpi, text));
}

void ParseViewpoint(const CLI::App& app, const Words& words, const PlotSettings& settings,
                    Viewpoint& viewpoint) {
    for (const char* const option : {"--azimuth", "--elevation"})
        if (app.count(option) > 0 && settings.mode != 0)
            throw Failure(std::string(option) + ": " +
                          Translate("CommandLine", "only the 3-D plot is turned"));
    if (app.count("--azimuth") > 0)
        viewpoint.azimuth = NumberWithin("--azimuth", words.azimuth, -360.0, 360.0);
    if (app.count("--elevation") > 0)
        viewpoint.elevation = NumberWithin("--elevation", words.elevation, -90.0, 90.0);
    if (app.count("--zoom") > 0) viewpoint.zoom = NumberWithin("--zoom", words.zoom, minZoom, maxZoom);
}

void ParseSurfaces(const Words& words, Options& options) {
    const std::size_t count = std::max<std::size_t>(options.files.size(), 1);
    const int surfaces = static_cast<int>(count);
    for (const auto& [option, texts] :
         {std::pair("--opacity", &words.opacities), std::pair("--surface-color", &words.surfaceColors)})
        if (texts->size() > count)
            throw Failure(
                std::string(option) + ": " +
                Filled(Translate("CommandLine", "given %1 times for %n surface(s)", nullptr, surfaces),
                       texts->size()));
    options.looks.clear();
    for (std::size_t i = 0; i < count; ++i) {
        SurfaceLooks looks = UsualLooks(i);
        if (i < words.opacities.size())
            looks.opacity = NumberWithin("--opacity", words.opacities[i], 0.0, 1.0);
        try {
            if (i < words.surfaceColors.size()) looks.color = ParseSurfaceColor(words.surfaceColors[i]);
        } catch (const Failure& failure) {
            throw Failure(std::string("--surface-color: ") + failure.what());
        }
        options.looks.push_back(looks);
    }
}

Range RangeOf(const std::string& option, const std::string& text) {
    try {
        return ParseRange(text);
    } catch (const Failure& failure) {
        throw Failure(option + ": " + failure.what());
    }
}

ProfileLine ProfileOf(const std::string& text) {
    try {
        return ParseProfileLine(text);
    } catch (const Failure& failure) {
        throw Failure(std::string("--profile: ") + failure.what());
    }
}

double PositiveNumber(const std::string& text) {
    const double number = ParseNumber(text).value_or(0.0);
    if (!(number > 0.0) || !std::isfinite(number))
        throw Failure(Filled(Translate("CommandLine", "expected a number above 0, found %1"), text));
    return number;
}

char ParseDecimalMark(const std::string& text) {
    if (text != "point" && text != "comma")
        throw Failure(Filled(Translate("CommandLine", "expected point or comma, found %1"), text));
    return text == "point" ? '.' : ',';
}

void ParseReading(const CLI::App& app, const Words& words, ReadOptions& reading) {
    const auto parse = [&app](const char* option, const std::string& text, const auto& parseText) {
        try {
            if (app.count(option) > 0) parseText(text);
        } catch (const Failure& failure) {
            throw Failure(std::string(option) + ": " + failure.what());
        }
    };
    parse("--region", words.region, [&](const std::string& text) { reading.region = ParseRegion(text); });
    parse("--columns", words.columns, [&](const std::string& text) { reading.columns = ParseColumns(text); });
    parse("--decimal", words.decimalMark,
          [&](const std::string& text) { reading.decimalMark = ParseDecimalMark(text); });
    parse("--grid", words.method, [&](const std::string& text) { reading.method = ParseGridMethod(text); });
    parse("--cell", words.cell, [&](const std::string& text) { reading.cell = PositiveNumber(text); });
    parse("--radius", words.radius, [&](const std::string& text) { reading.radius = PositiveNumber(text); });
}

} // namespace

std::string LanguageIn(int argc, const char* const* argv) {
    const std::string_view option = "--language";
    std::string language;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "--manual-page") return "en"; // it is installed for everybody
        if (word == option && i + 1 < argc) language = argv[i + 1];
        if (word.substr(0, option.size() + 1) == "--language=") language = word.substr(option.size() + 1);
    }
    return language;
}

Options ParseOptions(int argc, const char* const* argv) {
    Options options;
    Words words;
    CLI::App app(Translate("CommandLine", "Shows a surface z = f(x, y) as a 3-D plot."), "kivo-viewer");
    TranslateHelp(app);
    Describe(app, options, words);
    DescribeSettings(app, words);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        options.information = app.help();
    } catch (const CLI::CallForVersion& version) {
        options.information = version.what();
    } catch (const CLI::ParseError& error) {
        throw Failure(
            Filled(Translate("CommandLine", "%1; kivo-viewer --help lists the options"), WordsFor(error)));
    }
    if (words.wantsManualPage) options.information = ManualPage(app);
    if (!options.information.empty()) return options;
    // What is given empty was given by mistake, often an unset variable of a script.
    for (const std::string& file : options.files)
        if (file.empty()) throw Failure("FILE: " + Translate("CommandLine", "empty"));
    for (const char* const name : {"--function", "--picture", "--session", "--minus", "--profile-csv"})
        if (app.count(name) > 0 && app[name]->as<std::string>().empty())
            throw Failure(std::string(name) + ": " + Translate("CommandLine", "empty"));
    if (app.count("--x") > 0) options.x = RangeOf("--x", words.x);
    if (app.count("--y") > 0) options.y = RangeOf("--y", words.y);
    options.hasMode = app.count("--mode") > 0;
    // A session is a file like others, for desktops that open it with the program.
    const std::string ending = ".kivo";
    const auto isSession = [&ending](const std::string& file) {
        return file.size() > ending.size() &&
               file.compare(file.size() - ending.size(), ending.size(), ending) == 0;
    };
    if (options.files.size() == 1 && isSession(options.files.front()))
        options.sessionFile = std::exchange(options.files, {}).front();
    options.hasSize = app.count("--size") > 0;
    if (options.hasSize) ParseSize(words.size, options);
    if (app.count("--trace-at") > 0) options.traceAt = ParsePosition(words.traceAt);
    if (app.count("--scale") > 0) ParseScale(words.scale, options.format);
    ParseReading(app, words, options.reading);
    ParseSettings(app, words, options);
    ParseViewpoint(app, words, options.settings, options.viewpoint);
    ParseSurfaces(words, options);
    if (app.count("--profile") > 0) options.profile = ProfileOf(words.profile);
    return options;
}

} // namespace KivoViewer
