#include "TextLines.h"

#include "Failure.h"
#include "Language.h"
#include "Numbers.h"

#include <algorithm>
#include <utility>

namespace KivoViewer {

namespace {

constexpr std::size_t linesBetweenReports = 256;

} // namespace

TextLines::TextLines(std::string_view text, std::string name, Progress progress)
    : m_text(text), m_name(std::move(name)), m_progress(std::move(progress)) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (m_text.substr(0, byteOrderMark.size()) == byteOrderMark) m_text.remove_prefix(byteOrderMark.size());
}

bool TextLines::Next() {
    while (m_position < m_text.size()) {
        const std::size_t end = std::min(m_text.find('\n', m_position), m_text.size());
        std::string_view line = m_text.substr(m_position, end - m_position);
        m_position = end + 1;
        if (++m_linesPassed % linesBetweenReports == 0)
            Report(m_progress, static_cast<double>(m_position) / static_cast<double>(m_text.size()));
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        const std::string_view content = Trimmed(line);
        if (content.empty() || content.front() == '#') continue;
        m_line = line; // a leading separator is an empty field, so tabs stay
        m_number = m_linesPassed;
        if (line.find('\0') != std::string_view::npos)
            Fail(Translate("Files", "this is not a text file in UTF-8 or ASCII"));
        return true;
    }
    return false;
}

Progress TextLines::Reporting() const {
    const double passed = 1.0 - static_cast<double>(FromHere().size()) / static_cast<double>(m_text.size());
    return [progress = m_progress, passed](double share) {
        return !progress || progress(passed + (1.0 - passed) * share);
    };
}

void TextLines::Fail(const std::string& reason) const {
    FailAt(m_number, reason);
}

void TextLines::FailAt(std::size_t line, const std::string& reason) const {
    throw Failure(m_name + ":" + std::to_string(line) + ": " + reason);
}

char FieldSeparator(std::string_view line) {
    for (const char separator : {';', ',', '\t'})
        if (line.find(separator) != std::string_view::npos) return separator;
    return ' ';
}

void SplitFields(std::string_view line, char separator, std::vector<std::string_view>& fields) {
    fields.clear();
    if (separator != ' ') {
        for (std::size_t begin = 0; begin <= line.size();) {
            const std::size_t end = std::min(line.find(separator, begin), line.size());
            fields.push_back(Trimmed(line.substr(begin, end - begin)));
            begin = end + 1;
        }
        return;
    }
    constexpr const char* blanks = " \t";
    for (std::size_t begin = line.find_first_not_of(blanks); begin != std::string_view::npos;) {
        const std::size_t end = std::min(line.find_first_of(blanks, begin), line.size());
        fields.push_back(line.substr(begin, end - begin));
        begin = line.find_first_not_of(blanks, end);
    }
}

} // namespace KivoViewer
