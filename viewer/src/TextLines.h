// A data file's text, line by line.
#pragma once

#include "Progress.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace KivoViewer {

/// Walks through the lines that carry data: empty lines, lines that begin with #, the byte order mark and
/// the carriage returns of line ends are left out.
class TextLines {
public:
    /// @param text      must outlive this object
    /// @param name      of the file, for messages
    /// @param progress  told how much has been read
    TextLines(std::string_view text, std::string name, Progress progress = {});

    /// Goes to the next line with data. @return false at the end; the last line then stays the current one
    bool Next();

    std::string_view Line() const { return m_line; }
    std::size_t Number() const { return m_number; } ///< of the current line, from 1
    const std::string& Name() const { return m_name; }

    /// The text from the current line on, all of it.
    std::string_view FromHere() const {
        return m_text.substr(static_cast<std::size_t>(m_line.data() - m_text.data()));
    }
    /// Tells how much has been read of a text from the current line on.
    Progress Reporting() const;

    /// Throws a Failure that names the file and the current line.
    [[noreturn]] void Fail(const std::string& reason) const;
    /// Throws a Failure that names the file and a line.
    [[noreturn]] void FailAt(std::size_t line, const std::string& reason) const;

private:
    std::string_view m_text;
    std::string m_name;
    std::string_view m_line;
    std::size_t m_position = 0;
    std::size_t m_number = 0;
    std::size_t m_linesPassed = 0;
    Progress m_progress;
};

/// The separator of a line's fields: a semicolon, a comma or a tab, where the line has one, else a space,
/// which stands for any number of spaces.
char FieldSeparator(std::string_view line);

/// Cuts a line into its fields, trimmed. Between semicolons, commas and tabs a field may be empty.
void SplitFields(std::string_view line, char separator, std::vector<std::string_view>& fields);

} // namespace KivoViewer
