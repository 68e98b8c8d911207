// Names of files as sessions have them.
#pragma once

#include <QJsonValue>

#include <filesystem>
#include <string>

namespace KivoViewer {

/// The folder that a session's file lies in.
std::filesystem::path FolderOf(const std::string& session);

/// How a session names a file: from its own folder on where the file lies in it, else with all folders;
/// GDAL's names of variables as they are. A name is text, as files of today have it. One that is no UTF-8 is
/// an object instead, whose "bytes" are percent-encoded: caf%E9.csv.
QJsonValue SessionName(const std::string& path, const std::filesystem::path& folder);

/// The file that such a name is of; empty for none. Throws a Failure for what no file can be called.
std::string FileOf(const QJsonValue& name, const std::filesystem::path& folder);

} // namespace KivoViewer
