// What ends the program with a message.
#pragma once

#include <stdexcept>
#include <string>

namespace KivoViewer {

/// Something the user can mend: its text is the message, without the program's name.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A message as one line that a terminal shows as it is: control characters become spaces.
std::string OneLine(std::string text);

} // namespace KivoViewer
