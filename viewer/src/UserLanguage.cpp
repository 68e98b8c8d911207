#include "UserLanguage.h"

#include "Failure.h"
#include "Language.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <vector>

namespace KivoViewer {

namespace {

constexpr const char* english = "en"; // as the sources have it
constexpr const char* catalogues = ":/words";
constexpr const char* start = "kivo-viewer_"; // of their names

QTranslator& Ours() {
    static QTranslator translator;
    return translator;
}

// Those of which the program was built with a catalogue.
std::vector<std::string> Languages() {
    std::vector<std::string> languages = {english};
    for (const QString& name : QDir(catalogues).entryList())
        languages.push_back(name.mid(static_cast<int>(qstrlen(start)), 2).toStdString());
    return languages;
}

bool IsOneOf(const std::vector<std::string>& languages, const std::string& language) {
    return std::find(languages.begin(), languages.end(), language) != languages.end();
}

std::string LanguageOfDesktop() {
    const std::vector<std::string> languages = Languages();
    for (const QString& name : QLocale::system().uiLanguages()) {
        std::string language = name.left(2).toStdString();
        if (IsOneOf(languages, language)) return language;
    }
    return english;
}

std::string Find(const char* context, const char* text, const char* comment, int count) {
    return Ours().translate(context, text, comment, count).toStdString();
}

} // namespace

void SpeakLanguage(const std::string& wanted) {
    const bool isKnown = wanted.empty() || IsOneOf(Languages(), wanted);
    const std::string language = wanted.empty() || !isKnown ? LanguageOfDesktop() : wanted;
    if (language != english && Ours().load(start + QString::fromStdString(language), catalogues))
        SetDictionary(Find);
    if (!isKnown)
        throw Failure("--language: " +
                      Filled(Translate("CommandLine", "expected %1, found %2"), Listed(Languages()), wanted));
}

void TranslateWindow() {
    if (Ours().isEmpty()) return;
    static QTranslator ofQt;
    const QString name = "qtbase_" + Ours().language().left(2);
    if (ofQt.load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&ofQt);
    QCoreApplication::installTranslator(&Ours());
}

} // namespace KivoViewer
