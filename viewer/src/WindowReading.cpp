#include "WindowReading.h"

#include "Background.h"
#include "Failure.h"
#include "GridReader.h"
#include "ReadDialogs.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <functional>
#include <type_traits>
#include <utility>

namespace KivoViewer {

namespace {

template <class File>
using Read = std::function<File(const Reading&, const Progress&)>;

// Reads until nothing is open any more.
template <class File>
File ReadAsking(QWidget* parent, Reading reading, const Read<File>& read) {
    constexpr bool isGrid = std::is_same_v<File, GridData>;
    const QString name = QFileInfo(QFile::decodeName(reading.path.c_str())).fileName();
    while (true) {
        try {
            File file = MakeInBackground<File>(
                parent, QCoreApplication::translate("WindowReading", "Reading %1...").arg(name),
                [reading, read](const Progress& progress) { return read(reading, progress); });
            file.path = reading.path;
            file.reading = reading.options;
            file.reading.asks = false;
            return file;
        } catch (const OpenQuestion& question) {
            const auto answer = AskForReading(parent, question, isGrid);
            if (!answer) throw Cancelled();
            reading = *answer;
        } catch (const GridQuestion& question) {
            if (!AskForGrid(parent, question, reading.options)) throw Cancelled();
        } catch (const Failure& failure) {
            if (!TellAndAskAgain(parent, failure, reading, isGrid)) throw Cancelled();
        }
    }
}

} // namespace

Reading AskingReading(const QString& path) {
    Reading reading = {{}, QFile::encodeName(path).toStdString(), {}};
    reading.options.asks = true;
    return reading;
}

GridData ReadGridForWindow(QWidget* parent, const Reading& reading) {
    return ReadAsking<GridData>(parent, reading, [](const Reading& present, const Progress& progress) {
        return ReadGridFile(present.path, progress, present.options);
    });
}

PointFile ReadPointsForWindow(QWidget* parent, const QString& path) {
    return ReadAsking<PointFile>(parent, AskingReading(path), [](const Reading& reading, const Progress&) {
        return ReadPointFile(reading.path, reading.options);
    });
}

} // namespace KivoViewer
