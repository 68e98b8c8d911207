// The viewer's window in other languages: what it shows, and that numbers stay as they are.
#include "ViewerWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

using namespace KivoTest;
using KivoDrawingTools::Compare;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const std::string hill = KIVO_TEST_DATA "/hill.csv";

class ViewerWindowLanguageTest : public ViewerWindow {
protected:
    // A locale with decimal commas of this name, for the C library and so for all that uses it.
    Environment WithCommas(const std::string& name) const {
        const std::string make = "localedef -c -i " KIVO_TEST_DATA "/commas.locale -f UTF-8 ";
        // Warnings about what the language lacks are failures to it.
        if (std::system((make + Path(name) + " >/dev/null 2>&1").c_str()) < 0) ADD_FAILURE() << "no shell";
        EXPECT_TRUE(std::filesystem::exists(Path(name) + "/LC_NUMERIC"))
            << "localedef needs the package locales";
        return {{"LOCPATH", m_folder.Path()}, {"LC_ALL", name}};
    }

    // In a language, with the key that tells all texts.
    void StartIn(const std::string& language, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = {
            hill, "--size", "800x600", "--points", KIVO_TEST_DATA "/wells.csv", "--language", language};
        arguments.insert(arguments.end(), more.begin(), more.end());
        Start(arguments, {{"LD_PRELOAD", KIVO_TEXTS_KEY}});
    }

    // Those of the window, with all its sections open, and of its dialogs, by their titles.
    std::set<Text> AllTexts(const std::string& keys, const std::string& picture) {
        std::set<Text> all;
        const auto add = [&] {
            const std::vector<Text> texts = Texts();
            for (const Text& text : texts)
                EXPECT_NE(text.first, "cut") << text.second;
            all.insert(texts.begin(), texts.end());
        };
        const auto addDialog = [&](const std::string& title) {
            Keep(Grab(AreaOf(WaitForDialog(title))), title);
            add();
            Press(escapeKey);
            WaitForNoDialog();
        };
        for (char section = '1'; section <= '9'; ++section)
            PressWith(controlKey, static_cast<xcb_keysym_t>(section));
        Settle();
        add();
        Keep(Grab(AreaOf(m_window)), picture + " window");
        Press(f1Key);
        addDialog(keys);
        PressWith(controlKey, 's');
        addDialog(picture);
        return all;
    }
};

// Words, not an axis or a unit.
bool HasLetters(const std::string& text) {
    int letters = 0;
    for (const char c : text)
        letters += std::isalpha(static_cast<unsigned char>(c)) != 0;
    return letters > 2;
}

// The letter that opens an entry of a menu, or nothing.
std::string AccessKey(const std::string& label) {
    const std::size_t mark = label.find('&');
    if (mark == std::string::npos) return {};
    return {static_cast<char>(std::toupper(static_cast<unsigned char>(label[mark + 1])))};
}

// Names of data, colours and keys.
bool IsName(const std::string& text) {
    static const std::set<std::string> names = {
        "hill.csv", "wells.csv", "hill.csv - Kivo Viewer", "viridis", "cividis", "turbo", "coolwarm"};
    static const std::regex keys("(Ctrl\\+|Shift\\+)*([A-Z0-9]|F[0-9]+|Home)");
    return names.count(text) > 0 || text[0] == '#' || std::regex_match(text, keys);
}

// Words that two languages share.
std::set<std::string> Shared(const std::set<Text>& some, const std::set<Text>& others) {
    std::set<std::string> shared;
    for (const Text& text : some)
        if (others.count(text) > 0 && HasLetters(text.second) && !IsName(text.second))
            shared.insert(text.second);
    return shared;
}

TEST_F(ViewerWindowLanguageTest, TranslatesAllOfTheWindow) {
    StartIn("en");
    const std::set<Text> english = AllTexts("Keys and mouse", "Save picture");
    EXPECT_GT(english.size(), 200U);
    EXPECT_THAT(english, Contains(Text("action", "&File")));
    EXPECT_THAT(english, Contains(Text("suffix", " pixels")));
    StartIn("de");
    const std::set<Text> german = AllTexts("Tasten und Maus", "Bild speichern");
    EXPECT_NEAR(static_cast<double>(german.size()), static_cast<double>(english.size()), 10.0);
    EXPECT_THAT(german, Contains(Text("action", "Dia&gramm")));
    EXPECT_THAT(german, Contains(Text("title", "Einstellungen")));
    EXPECT_THAT(german, Contains(Text("suffix", " Punkte je Zoll")));
    EXPECT_THAT(Shared(english, german), ElementsAre("Name"));
    StartIn("ja");
    const std::set<Text> japanese = AllTexts("キーとマウス", "画像の保存");
    EXPECT_NEAR(static_cast<double>(japanese.size()), static_cast<double>(english.size()), 10.0);
    EXPECT_THAT(japanese, Contains(Text("action", "ファイル(&F)")));
    EXPECT_THAT(japanese, Contains(Text("button", "等高線")));
    EXPECT_THAT(Shared(english, japanese), IsEmpty());
    EXPECT_THAT(Shared(german, japanese), IsEmpty());
}

TEST_F(ViewerWindowLanguageTest, HasAccessKeysOfItsOwnInEachMenu) {
    for (const char* const language : {"en", "de", "ja"}) {
        StartIn(language);
        std::set<std::string> keys;
        int count = 0;
        for (const auto& [kind, text] : Texts()) {
            const std::string key = AccessKey(text);
            if (kind == "menu") keys.clear();
            if (kind != "action" || key.empty()) continue;
            EXPECT_TRUE(keys.insert(key).second) << language << ": " << text;
            ++count;
        }
        EXPECT_GT(count, 40) << language;
    }
}

// From the desktop, as nearly everybody has it.
TEST_F(ViewerWindowLanguageTest, FollowsTheDesktop) {
    Start({hill, "--size", "800x600"}, {{"LC_ALL", "de_DE.UTF-8"}});
    OpenMenu('h');
    Press('b');
    Keep(Grab(AreaOf(WaitForDialog("Über Kivo Viewer"))), "about");
    Press(escapeKey);
    WaitForNoDialog();
}

TEST_F(ViewerWindowLanguageTest, HasPointsInNumbers) {
    const std::vector<std::string> options = {hill,  "--size",  "800x600",   "--exaggeration",
                                              "0.5", "--trace", "--azimuth", "12.5"};
    Start(options);
    const Image english = m_start;
    Environment german = WithCommas("de_DE.UTF-8");
    german["LD_PRELOAD"] = KIVO_TEXTS_KEY;
    Start(options, german);
    EXPECT_EQ(Compare(m_start, english).max, 0);
    After("trace", [this] { MoveBy(40, 30); });
    const std::vector<Text> texts = Texts();
    EXPECT_THAT(texts, Contains(Text("label", "Überhöhung 0.5")));
    const auto isTrace = [](const Text& text) { return text.second.find("x = ") == 0; };
    const auto trace = std::find_if(texts.begin(), texts.end(), isTrace);
    ASSERT_NE(trace, texts.end());
    EXPECT_THAT(trace->second, HasSubstr("."));
    for (const auto& [kind, text] : texts)
        EXPECT_FALSE(std::regex_search(text, std::regex("[0-9],[0-9]"))) << text;
}

TEST_F(ViewerWindowLanguageTest, SavesNumbersWithPoints) {
    Start({hill, "--size", "800x600", "--z-max", "2.5", "--azimuth", "12.5"}, WithCommas("de_DE.UTF-8"));
    desktop->Key(controlKey, true);
    PressWith(shiftKey, 's');
    desktop->Key(controlKey, false);
    WaitForDialog("Sitzung speichern");
    Type(Path("saved"));
    Press(returnKey);
    WaitForNoDialog();
    Settle();
    std::ifstream file(Path("saved.kivo"));
    const std::string session((std::istreambuf_iterator<char>(file)), {});
    EXPECT_THAT(session, HasSubstr("\"z-max\": \"2.5\""));
    EXPECT_TRUE(std::regex_search(session, std::regex("\"rotation\": \\[\\s*-?0\\.[0-9]{6}"))) << session;
    EXPECT_FALSE(std::regex_search(session, std::regex("[0-9],[0-9]"))) << session;
}

} // namespace
