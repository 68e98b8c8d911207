#include "LastError.h"

#include "KivoWindow.h"

#include <cstdio>
#include <utility>

namespace KivoDrawingTools {

namespace {

struct Failure {
    DWORD code = ERROR_SUCCESS;
    std::string words;
};

Failure& LastFailure() {
    thread_local Failure failure;
    return failure;
}

} // namespace

bool Fail(DWORD code, std::string words) {
    LastFailure().code = code;
    LastFailure().words = std::move(words);
    return false;
}

KeepLastError::KeepLastError() : m_code(LastFailure().code), m_words(LastFailure().words) {}

KeepLastError::~KeepLastError() {
    Fail(m_code, std::move(m_words));
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
    return LastFailure().words.c_str();
}

} // namespace KivoDrawingTools
