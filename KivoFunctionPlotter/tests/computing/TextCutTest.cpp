// Where a text is cut in two, in encodings of one, two and up to four bytes for a character.
#include "computing/TextCut.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr TextEncoding utf8 = {true, nullptr};
constexpr TextEncoding singleBytes = {false, nullptr};

// As in the Japanese code page.
bool IsLead(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
constexpr TextEncoding pairs = {false, IsLead};

std::size_t Cut(const std::string& text, const TextEncoding& encoding) {
    return MiddleOfText(text.data(), text.size(), encoding);
}

std::string Joined(const std::vector<std::string>& characters) {
    std::string text;
    for (const std::string& character : characters)
        text += character;
    return text;
}

// The last boundary between characters that is not behind the middle.
std::size_t ExpectedCut(const std::vector<std::string>& characters) {
    const std::size_t middle = Joined(characters).size() / 2;
    std::size_t end = 0;
    for (const std::string& character : characters) {
        if (end + character.size() > middle) break;
        end += character.size();
    }
    return end;
}

// All texts of a number of characters from a list.
void ExpectCutsBetween(const std::vector<std::string>& alphabet, const TextEncoding& encoding) {
    for (std::size_t number = 0; number < 4096; ++number) {
        std::vector<std::string> characters;
        std::size_t rest = number;
        for (int i = 0; i < 6; ++i, rest /= 4)
            characters.push_back(alphabet[rest % 4]);
        ASSERT_EQ(Cut(Joined(characters), encoding), ExpectedCut(characters)) << Joined(characters);
    }
}

} // namespace

TEST(TextCut, SingleBytesAreCutInTheMiddleWhateverTheyAre) {
    EXPECT_EQ(Cut("", singleBytes), 0u);
    EXPECT_EQ(Cut("abcd", singleBytes), 2u);
    EXPECT_EQ(Cut("abcde", singleBytes), 2u);
    EXPECT_EQ(Cut("a\xC3\xB6z", singleBytes), 2u) << "two letters there, one in UTF-8";
    EXPECT_EQ(Cut("a\xC3\xB6z", pairs), 2u);
}

TEST(TextCut, Utf8IsCutBetweenCharacters) {
    EXPECT_EQ(Cut("a\xC3\xB6z", utf8), 1u);
    ExpectCutsBetween({"a", "\xC3\xB6", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"}, utf8);
}

// The second bytes 0x5C and 0x83 are a character of their own and a first byte elsewhere.
TEST(TextCut, PairsAreCutBetweenCharacters) {
    ExpectCutsBetween({"a", "\x83\x5C", "\x83\x83", "\xB1"}, pairs);
}

TEST(TextCut, BytesThatAreNoCharactersCountOneEach) {
    EXPECT_EQ(Cut("ab\x83", pairs), 1u);
    EXPECT_EQ(Cut("\x83", pairs), 0u);
    EXPECT_EQ(Cut("\x80\x80\x80\x80\x80\x80\x80\x80", utf8), 4u);
    EXPECT_EQ(Cut("ab\xFFyz", utf8), 2u);
    EXPECT_EQ(Cut("W\xB6", utf8), 1u);
}
