// Sessions as JSON.
#include "Failure.h"
#include "FileText.h"
#include "Language.h"
#include "Numbers.h"
#include "Session.h"
#include "SessionNames.h"
#include "SettingTable.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>
#include <filesystem>

namespace KivoViewer {

namespace {

const char* const versionKey = "kivo-session";
constexpr int sessionVersion = 1;

QString Words(const std::string& text) {
    return QString::fromStdString(text);
}

std::string RangeText(const Range& range) {
    return FormatNumber(range.from) + ':' + FormatNumber(range.to) + ':' + std::to_string(range.count);
}

// ---- Out ------------------------------------------------------------------------------------------------

// By the names of the command line, and no more than is said.
QJsonObject ToJson(const ReadOptions& reading) {
    QStringList columns;
    for (const std::string& column : reading.columns)
        columns.append(Words(column));
    QJsonObject object;
    if (reading.band != 0) object["band"] = reading.band;
    if (reading.region) object["region"] = Words(TextOf(*reading.region));
    if (!columns.isEmpty()) object["columns"] = columns.join(',');
    if (reading.decimalMark) object["decimal"] = reading.decimalMark == ',' ? "comma" : "point";
    if (reading.method) object["grid"] = Words(NameOf(*reading.method));
    if (reading.cell > 0.0) object["cell"] = reading.cell;
    if (reading.radius > 0.0) object["radius"] = reading.radius;
    return object;
}

QJsonObject ToJson(const SurfaceEntry& surface, const std::filesystem::path& folder) {
    return {{"file", SessionName(surface.path, folder)},
            {"name", Words(surface.name)},
            {"shown", surface.isShown},
            {"lines", surface.hasLines},
            {"reading", ToJson(surface.reading)},
            {"opacity", surface.looks.opacity},
            {"color", surface.looks.color ? Words(FormatColor(*surface.looks.color)) : QString("values")}};
}

QJsonObject ToJson(const PointSet& set, const std::filesystem::path& folder) {
    return {{"kind", set.kind == PointSet::Kind::curve ? "curve" : "points"},
            {"file", SessionName(set.path, folder)},
            {"group", Words(set.group)},
            {"reading", ToJson(set.reading)},
            {"name", Words(set.name)},
            {"shown", set.isShown},
            {"color", Words(FormatColor(set.color))}};
}

QJsonObject ToJson(const PlotSettings& settings) {
    QJsonObject object;
    for (const Setting& setting : AllSettings())
        if (TextOf(setting, settings) != TextOf(setting, PlotSettings()) || IsToggle(setting))
            object[Words(setting.name)] = Words(TextOf(setting, settings));
    return object;
}

QJsonObject ToJson(const KivoDrawingTools::SKivoView& view) {
    QJsonArray rotation, inverse;
    for (const double number : view.rotation)
        rotation.append(number);
    for (const bool flag : view.inverse)
        inverse.append(flag);
    return {{"plot", view.plotType}, {"rotation", rotation}, {"pan-x", view.panX},       {"pan-y", view.panY},
            {"zoom", view.zoom},     {"inverse", inverse},   {"mirrored", view.mirrored}};
}

// ---- In -------------------------------------------------------------------------------------------------

Color ColorOf(const QJsonValue& value) {
    return ParseColor(value.toString().toStdString());
}

ReadOptions ReadingFrom(const QJsonObject& object) {
    ReadOptions reading;
    reading.band = std::max(object["band"].toInt(), 0);
    if (object.contains("region")) reading.region = ParseRegion(object["region"].toString().toStdString());
    if (object.contains("columns"))
        reading.columns = ParseColumns(object["columns"].toString().toStdString());
    if (object.contains("decimal")) reading.decimalMark = object["decimal"].toString() == "comma" ? ',' : '.';
    if (object.contains("grid")) reading.method = ParseGridMethod(object["grid"].toString().toStdString());
    reading.cell = std::max(object["cell"].toDouble(), 0.0);
    reading.radius = std::max(object["radius"].toDouble(), 0.0);
    return reading;
}

SurfaceEntry SurfaceFrom(const QJsonObject& object, const std::filesystem::path& folder) {
    SurfaceEntry surface;
    surface.path = FileOf(object["file"], folder);
    surface.reading = ReadingFrom(object["reading"].toObject());
    surface.name = object["name"].toString().toStdString();
    surface.isShown = object["shown"].toBool(true);
    surface.hasLines = object["lines"].toBool(false);
    surface.looks.opacity = std::clamp(object["opacity"].toDouble(1.0), 0.0, 1.0);
    surface.looks.color = ParseSurfaceColor(object["color"].toString("values").toStdString());
    return surface;
}

// @param counts  sets of either kind so far
PointSet PointsFrom(const QJsonObject& object, const std::filesystem::path& folder,
                    std::size_t (&counts)[2]) {
    PointSet set;
    const bool isCurve = object["kind"].toString() == "curve";
    if (isCurve) set.kind = PointSet::Kind::curve;
    set.index = counts[isCurve ? 1 : 0]++;
    set.path = FileOf(object["file"], folder);
    set.reading = ReadingFrom(object["reading"].toObject());
    set.group = object["group"].toString().toStdString();
    set.name = object["name"].toString().toStdString();
    set.isShown = object["shown"].toBool(true);
    set.color = ColorOf(object["color"]);
    return set;
}

// What is said of one of the session's entries begins with its name.
template <typename Parse>
void ParseEntry(const std::string& name, const QJsonValue& value, const Parse& parse) {
    if (!value.isString()) return; // of a later version, or not there
    try {
        parse(value.toString().toStdString());
    } catch (const Failure& failure) {
        throw Failure(name + ": " + failure.what());
    }
}

// Names that are none are of a later version.
PlotSettings SettingsFrom(const QJsonObject& object) {
    PlotSettings settings;
    for (const Setting& setting : AllSettings())
        ParseEntry(setting.name, object[Words(setting.name)],
                   [&](const std::string& text) { SetFromText(setting, text, settings); });
    return settings;
}

std::optional<KivoDrawingTools::SKivoView> ViewFrom(const QJsonObject& object) {
    KivoDrawingTools::SKivoView view;
    const QJsonArray rotation = object["rotation"].toArray(), inverse = object["inverse"].toArray();
    if (rotation.size() != 9 || inverse.size() != 3) return {};
    for (int i = 0; i < rotation.size(); ++i)
        view.rotation[i] = rotation[i].toDouble();
    for (int i = 0; i < inverse.size(); ++i)
        view.inverse[i] = inverse[i].toBool();
    view.plotType = std::clamp(object["plot"].toInt(), 0, 3);
    view.panX = object["pan-x"].toDouble();
    view.panY = object["pan-y"].toDouble();
    view.zoom = object["zoom"].toDouble(1.0);
    view.mirrored = object["mirrored"].toBool();
    return view;
}

Session SessionFrom(const QJsonObject& object, const std::filesystem::path& folder) {
    Session session;
    session.function = object["function"].toString().toStdString();
    if (!session.function.empty()) {
        session.x = ParseRange(object["x"].toString().toStdString());
        session.y = ParseRange(object["y"].toString().toStdString());
    }
    session.minus = FileOf(object["minus"], folder);
    session.minusReading = ReadingFrom(object["minus-reading"].toObject());
    for (const auto& surface : object["surfaces"].toArray())
        session.surfaces.push_back(SurfaceFrom(surface.toObject(), folder));
    std::size_t counts[2] = {};
    for (const auto& set : object["points"].toArray())
        session.points.push_back(PointsFrom(set.toObject(), folder, counts));
    session.settings = SettingsFrom(object["settings"].toObject());
    session.settings.mode = std::clamp(object["mode"].toInt(), 0, 3);
    session.view = ViewFrom(object["view"].toObject());
    ParseEntry("profile", object["profile"],
               [&](const std::string& text) { session.profile = ParseProfileLine(text); });
    if (session.surfaces.empty()) throw Failure(Translate("Sessions", "it names no surface"));
    return session;
}

} // namespace

std::string WriteSession(const Session& session, const std::string& path) {
    const std::filesystem::path folder = FolderOf(path);
    QJsonArray surfaces, points;
    for (const SurfaceEntry& surface : session.surfaces)
        surfaces.append(ToJson(surface, folder));
    for (const PointSet& set : session.points)
        points.append(ToJson(set, folder));
    QJsonObject object = {{versionKey, sessionVersion},
                          {"surfaces", surfaces},
                          {"points", points},
                          {"mode", session.settings.mode},
                          {"settings", ToJson(session.settings)}};
    if (session.view) object["view"] = ToJson(*session.view);
    if (session.profile) object["profile"] = Words(TextOf(*session.profile));
    if (!session.minus.empty()) {
        object["minus"] = SessionName(session.minus, folder);
        object["minus-reading"] = ToJson(session.minusReading);
    }
    if (!session.function.empty()) {
        object["function"] = Words(session.function);
        object["x"] = Words(RangeText(session.x));
        object["y"] = Words(RangeText(session.y));
    }
    return QJsonDocument(object).toJson().toStdString();
}

Session ReadSession(const std::string& text, const std::string& path) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
    if (error.error != QJsonParseError::NoError)
        throw Failure(path + ": " +
                      Filled(Translate("Sessions", "no session: %1"), error.errorString().toStdString()));
    const QJsonObject object = document.object();
    const int version = object[versionKey].toInt();
    if (version < 1) throw Failure(path + ": " + Translate("Sessions", "no session"));
    if (version > sessionVersion)
        throw Failure(path + ": " + Translate("Sessions", "a session of a later version"));
    try {
        return SessionFrom(object, FolderOf(path));
    } catch (const Failure& failure) {
        throw Failure(path + ": " + failure.what());
    }
}

void WriteSessionFile(const Session& session, const std::string& path) {
    QSaveFile file(QFile::decodeName(path.c_str()));
    const QByteArray text = QByteArray::fromStdString(WriteSession(session, path));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        throw Failure(
            path + ": " +
            Filled(Translate("Sessions", "cannot be written: %1"), file.errorString().toStdString()));
}

Session ReadSessionFile(const std::string& path) {
    return ReadSession(ReadFileText(path), path);
}

} // namespace KivoViewer
