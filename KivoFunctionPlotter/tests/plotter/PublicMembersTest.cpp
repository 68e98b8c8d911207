// The table of the public members has all that the headers declare.
#include "support/PublicMembers.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>

using namespace KivoDrawingTools;

namespace {

std::string Header(const std::string& name) {
    std::ifstream file(KIVO_HEADER_FOLDER "/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return std::regex_replace(text, std::regex("//[^\n]*"), "");
}

// How many functions of a name the text declares. Constructors, destructor and assignment are left out: they
// have no plotter to be called on.
void CountFunctions(const std::string& text, std::map<std::string, int>& counts) {
    const std::regex function(R"((~?\w+)\s*\((?!\*)[^;]*\)[^;()]*;)");
    for (std::sregex_iterator match(text.begin(), text.end(), function), end; match != end; ++match) {
        const std::string name = (*match)[1];
        if (name != "CKivoFunctionPlotter" && name != "~CKivoFunctionPlotter") ++counts[name];
    }
}

std::map<std::string, int> DeclaredFunctions() {
    const std::string header = Header("KivoFunctionPlotter.h");
    const std::size_t begin = header.find("\npublic:"), end = header.find("\nprotected:");
    EXPECT_TRUE(begin < end && end != std::string::npos);
    std::map<std::string, int> counts;
    CountFunctions(header.substr(begin, end - begin), counts);
    CountFunctions(Header("KivoPicture.h"), counts);
    CountFunctions(Header("KivoStyle.h"), counts);
    CountFunctions(Header("KivoMotion.h"), counts);
    CountFunctions(Header("KivoSurfaces.h"), counts);
    CountFunctions(Header("KivoAxis.h"), counts);
    CountFunctions(Header("KivoColorMap.h"), counts);
    CountFunctions(Header("KivoContours.h"), counts);
    CountFunctions(Header("KivoPoints.h"), counts);
    CountFunctions(Header("KivoLegend.h"), counts);
    CountFunctions(Header("KivoView.h"), counts);
    return counts;
}

} // namespace

TEST(PublicMembers, AreThoseThatTheHeadersDeclare) {
    const std::map<std::string, int> declared = DeclaredFunctions();
    EXPECT_GT(declared.size(), 90u);
    std::map<std::string, int> inTable;
    for (const PublicMember& member : PublicMembers())
        ++inTable[member.MemberName()];
    EXPECT_THAT(inTable, testing::ContainerEq(declared));
}

TEST(PublicMembers, HaveNamesOfTheirOwn) {
    std::set<std::string> names;
    for (const PublicMember& member : PublicMembers())
        EXPECT_TRUE(names.insert(member.name).second) << member.name;
}
