#include "SessionNames.h"

#include "Failure.h"
#include "Language.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <system_error>

namespace KivoViewer {

namespace {

const char* const bytesKey = "bytes";

// File names are bytes, which Qt's texts do not hold.
std::filesystem::path WithFolders(const std::filesystem::path& path) {
    std::error_code error; // where there is no current folder
    const std::filesystem::path full = std::filesystem::absolute(path, error);
    return (error ? path : full).lexically_normal();
}

bool Exists(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::exists(path, error);
}

QJsonValue Written(const std::string& name) {
    const QByteArray bytes = QByteArray::fromStdString(name);
    const QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() == bytes) return text;
    return QJsonObject{{bytesKey, QString::fromLatin1(bytes.toPercentEncoding("/: ,()"))}};
}

std::string Read(const QJsonValue& name) {
    std::string text = name.isObject()
                           ? QByteArray::fromPercentEncoding(name[bytesKey].toString().toUtf8()).toStdString()
                           : name.toString().toStdString();
    if (text.find('\0') != std::string::npos)
        throw Failure(Translate("Sessions", "a name of a file ends before its text does"));
    return text;
}

} // namespace

std::filesystem::path FolderOf(const std::string& session) {
    return WithFolders(session).parent_path();
}

QJsonValue SessionName(const std::string& path, const std::filesystem::path& folder) {
    if (path.empty()) return QString();
    if (!Exists(path)) return Written(path);
    const std::filesystem::path full = WithFolders(path), relative = full.lexically_relative(folder);
    const bool isInside = !relative.empty() && *relative.begin() != "..";
    return Written((isInside ? relative : full).string());
}

std::string FileOf(const QJsonValue& name, const std::filesystem::path& folder) {
    const std::string text = Read(name);
    if (text.empty()) return {};
    const bool isFile = text.find(':') == std::string::npos || Exists(folder / text);
    return isFile ? (folder / text).lexically_normal().string() : text;
}

} // namespace KivoViewer
