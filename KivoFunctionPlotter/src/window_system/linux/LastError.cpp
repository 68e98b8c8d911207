#include "LastError.h"

#include "KivoWindow.h"

#include <cstdio>

namespace KivoDrawingTools {

namespace {

Failure& LastFailure() {
    thread_local Failure failure;
    return failure;
}

} // namespace

bool Fail(DWORD code, std::string_view words) {
    LastFailure().code = code;
    LastFailure().words.Say(words);
    return false;
}

bool FailFurther(DWORD code, std::string_view words) {
    return LastFailure().words.IsEmpty() && Fail(code, words);
}

void RecordFailure(unsigned long code, const char* words) {
    Fail(static_cast<DWORD>(code), words);
}

KeepFailure::KeepFailure() : m_code(LastFailure().code), m_words(LastFailure().words) {}

KeepFailure::~KeepFailure() {
    if (!m_isForgotten) LastFailure() = {static_cast<DWORD>(m_code), m_words};
}

std::string Hex(unsigned long value) {
    char text[2 * sizeof value + 3];
    std::snprintf(text, sizeof text, "0x%lx", value);
    return text;
}

DWORD GetLastError() {
    return LastFailure().code;
}

const char* LastWindowError() {
    return LastFailure().words.text;
}

} // namespace KivoDrawingTools
