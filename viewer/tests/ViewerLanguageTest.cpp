// The viewer's texts in other languages: those of the command line, and how they are put together.
#include "Language.h"
#include "support/PrivateFolder.h"
#include "ViewerProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

// Has a dictionary for as long as it lives.
class OwnDictionary {
public:
    explicit OwnDictionary(Dictionary dictionary) { SetDictionary(std::move(dictionary)); }
    ~OwnDictionary() { SetDictionary({}); }
    OwnDictionary(const OwnDictionary&) = delete;
    OwnDictionary& operator=(const OwnDictionary&) = delete;
};

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// What a file that is missing is called, in a language or in that of an environment.
std::string ErrorIn(const Environment& environment, const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments = {"/nowhere.csv", "--picture", "-"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const ViewerResult result = RunViewer(arguments, environment);
    EXPECT_EQ(result.exitCode, 2);
    return result.errors;
}

constexpr const char* inEnglish = "kivo-viewer: /nowhere.csv: cannot open it: ";
constexpr const char* inGerman = "kivo-viewer: /nowhere.csv: lässt sich nicht öffnen: ";
constexpr const char* inJapanese = "kivo-viewer: /nowhere.csv: 開けません: ";

TEST(ViewerLanguageTest, FillsPlacesInAnyOrder) {
    EXPECT_EQ(Filled("%2 of %1", 3, std::string("x")), "x of 3");
    EXPECT_EQ(Filled("%1 axis", 'Z'), "Z axis");
    EXPECT_EQ(Filled("%1: %2", "%2", "%1"), "%2: %1") << "what looks like a place in a value is none";
    EXPECT_EQ(Filled("100% of %1, %3 and %", 5), "100% of 5, %3 and %");
}

TEST(ViewerLanguageTest, HasPluralsOfItsOwnInEnglish) {
    EXPECT_EQ(Translate("Files", "%n value(s)", nullptr, 1), "1 value");
    EXPECT_EQ(Translate("Files", "%n value(s)", nullptr, 0), "0 values");
    EXPECT_EQ(Translate("Files", "(s)"), "(s)");
}

TEST(ViewerLanguageTest, ListsChoices) {
    EXPECT_EQ(Listed({"a"}), "a");
    EXPECT_EQ(Listed({"a", "b"}), "a or b");
    EXPECT_EQ(Listed({"a", "b", "c", "d"}), "a, b, c or d");
}

TEST(ViewerLanguageTest, LooksTextsUp) {
    const OwnDictionary dictionary([](const char* context, const char* text, const char*, int count) {
        return std::string(text) == "known %1" ? context + std::string(" %1 %n ") + std::to_string(count)
                                               : "";
    });
    EXPECT_EQ(Filled(Translate("Files", "known %1"), 7), "Files 7 %n -1");
    EXPECT_EQ(Translate("Files", "known %1", nullptr, 2), "Files %1 2 2");
    EXPECT_EQ(Translate("Files", "unknown"), "unknown");
}

TEST(ViewerLanguageTest, KnowsMessagesOfOthersByTheirPatterns) {
    const OwnDictionary dictionary([](const char*, const char* text, const char*, int) {
        return std::string(text) == "%1 requires %2" ? std::string("%2 is lacking for %1") : std::string();
    });
    const auto translated = [](const char* message) {
        return TranslateLike("CommandLine", {"%1: at most %2", "%1 requires %2"}, message);
    };
    EXPECT_EQ(translated("--x requires --function"), "--function is lacking for --x");
    EXPECT_EQ(translated("--x: at most 2"), "--x: at most 2");
    EXPECT_EQ(translated("something else"), "something else");
}

TEST(ViewerLanguageTest, IsTheDesktops) {
    EXPECT_THAT(ErrorIn({}), StartsWith(inEnglish));
    EXPECT_THAT(ErrorIn({{"LC_ALL", "de_DE.UTF-8"}}), StartsWith(inGerman));
    EXPECT_THAT(ErrorIn({{"LC_ALL", std::nullopt}, {"LANG", "ja_JP.UTF-8"}}), StartsWith(inJapanese));
    EXPECT_THAT(ErrorIn({{"LC_ALL", "de_AT.UTF-8"}, {"LANGUAGE", "ja"}}), StartsWith(inJapanese));
    EXPECT_THAT(ErrorIn({{"LC_ALL", "fr_FR.UTF-8"}}), StartsWith(inEnglish));
}

// The first that it has; English is one of them.
TEST(ViewerLanguageTest, GoesThroughTheDesktopsLanguages) {
    EXPECT_THAT(ErrorIn({{"LC_ALL", "fr_FR.UTF-8"}, {"LANGUAGE", "fr:de:en"}}), StartsWith(inGerman));
    EXPECT_THAT(ErrorIn({{"LC_ALL", "en_GB.UTF-8"}, {"LANGUAGE", "en_GB:en:de"}}), StartsWith(inEnglish));
}

TEST(ViewerLanguageTest, IsTheCommandLinesFirst) {
    const Environment german = {{"LC_ALL", "de_DE.UTF-8"}};
    EXPECT_THAT(ErrorIn(german, {"--language", "en"}), StartsWith(inEnglish));
    EXPECT_THAT(ErrorIn(german, {"--language=ja"}), StartsWith(inJapanese));
    EXPECT_THAT(ErrorIn({}, {"--language", "de"}), StartsWith(inGerman));
}

TEST(ViewerLanguageTest, RefusesALanguageThatItLacks) {
    EXPECT_EQ(RunViewer({"--language", "fr"}).errors,
              "kivo-viewer: --language: expected en, de or ja, found fr\n");
    EXPECT_EQ(RunViewer({"--language", "kl"}, {{"LC_ALL", "de_DE.UTF-8"}}).errors,
              "kivo-viewer: --language: en, de oder ja erwartet, kl gefunden\n");
    EXPECT_EQ(RunViewer({"--language="}).exitCode, 2);
    EXPECT_EQ(RunViewer({"--language"}).exitCode, 2);
}

TEST(ViewerLanguageTest, TellsFaultsOfTheCommandLine) {
    const auto errors = [](std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--language", "de"});
        return RunViewer(arguments).errors;
    };
    const std::string hint = "; kivo-viewer --help listet die Optionen auf\n";
    EXPECT_EQ(errors({"--unknown"}), "kivo-viewer: unerwartetes Argument: --unknown" + hint);
    EXPECT_EQ(errors({"--unknown", "--others"}),
              "kivo-viewer: unerwartete Argumente: --others --unknown" + hint);
    EXPECT_EQ(errors({"--x", "0:1:5"}), "kivo-viewer: --x braucht --function" + hint);
    EXPECT_EQ(errors({"a.asc", "--function", "x"}),
              "kivo-viewer: FILE und --function schließen einander aus" + hint);
    EXPECT_EQ(errors({"--mode", "7"}), "kivo-viewer: --mode: Der Wert 7 liegt nicht zwischen 0 und 3" + hint);
    EXPECT_EQ(errors({"--mode", "flat"}),
              "kivo-viewer: --mode: Der Wert flat liegt nicht zwischen 0 und 3" + hint);
    EXPECT_EQ(RunViewer({"--language", "de", "--title"}).errors,
              "kivo-viewer: --title: es fehlt 1 × TEXT" + hint);
    EXPECT_EQ(errors({"--opacity", "1", "--opacity", "0"}),
              "kivo-viewer: --opacity: 2-mal angegeben für 1 Fläche\n");
    EXPECT_EQ(errors({"--x-ticks", "1"}),
              "kivo-viewer: --x-ticks: ganze Zahl von 2 bis 200 erwartet, „1“ gefunden\n");
    EXPECT_EQ(errors({"--grid-lines", "--no-grid-lines"}),
              "kivo-viewer: --grid-lines und --no-grid-lines schließen einander aus\n");
}

TEST(ViewerLanguageTest, HelpsInTheLanguage) {
    const std::string german = RunViewer({"--language", "de", "--help"}).output;
    for (const char* const text : {"Aufruf: kivo-viewer [OPTIONEN]", "Höhenlinien:\n", "X-Achse:\n",
                                   "Diese Hilfe ausgeben", "Umschalt+Pos1", "Linke Taste"})
        EXPECT_THAT(german, HasSubstr(text));
    EXPECT_THAT(RunViewer({"--language", "ja", "--help"}).output, HasSubstr("等高線:\n"));
    EXPECT_THAT(RunViewer({"--language", "ja", "--list-formats"}).output, StartsWith("読み込める格子:\n"));
}

// It is made while the program is built, wherever that is.
TEST(ViewerLanguageTest, KeepsTheManualPageInEnglish) {
    const std::string page = RunViewer({"--manual-page"}).output;
    EXPECT_THAT(page, HasSubstr("Mirror the X axis"));
    EXPECT_EQ(RunViewer({"--manual-page"}, {{"LC_ALL", "de_DE.UTF-8"}}).output, page);
    EXPECT_EQ(RunViewer({"--manual-page", "--language", "ja"}).output, page);
}

// German has decimal commas, and pictures have points.
TEST(ViewerLanguageTest, LeavesPicturesAsTheyAre) {
    const PrivateFolder folder;
    const std::string data = KIVO_TEST_DATA "/hill.csv";
    const auto picture = [&](const std::string& name, const Environment& environment) {
        const std::string path = folder.Path() + '/' + name;
        const ViewerResult result = RunViewer({data, "--picture", path, "--size", "300x200", "--z-max", "2.5",
                                               "--legend-numbers", "fitted", "--title", "1.5"},
                                              environment);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        return Content(path);
    };
    const std::string english = picture("en.png", {});
    EXPECT_FALSE(english.empty());
    EXPECT_TRUE(picture("de.png", {{"LC_ALL", "de_DE.UTF-8"}}) == english);
}

} // namespace
