#include "WindowReading.h"

#include "Background.h"
#include "Failure.h"
#include "GridReader.h"
#include "ReadDialogs.h"

#include <QFile>
#include <QFileInfo>

#include <functional>
#include <utility>

namespace KivoViewer {

namespace {

template <class File>
using Read = std::function<File(const Reading&, const Progress&)>;

// Reads until nothing is open any more.
template <class File>
File ReadAsking(QWidget* parent, Reading reading, const Read<File>& read) {
    const QString name = QFileInfo(QFile::decodeName(reading.path.c_str())).fileName();
    while (true) {
        try {
            File file = MakeInBackground<File>(
                parent, "Reading " + name + "...",
                [reading, read](const Progress& progress) { return read(reading, progress); });
            file.path = reading.path;
            file.reading = reading.options;
            file.reading.asks = false;
            return file;
        } catch (const OpenQuestion& question) {
            const Reading* const answer = AskForReading(parent, question);
            if (!answer) throw Cancelled();
            reading = *answer;
        } catch (const GridQuestion& question) {
            if (!AskForGrid(parent, question, reading.options)) throw Cancelled();
        }
    }
}

Reading AskingReading(const QString& path) {
    Reading reading = {{}, QFile::encodeName(path).toStdString(), {}};
    reading.options.asks = true;
    return reading;
}

} // namespace

GridData ReadGridForWindow(QWidget* parent, const QString& path) {
    return ReadAsking<GridData>(parent, AskingReading(path),
                                [](const Reading& reading, const Progress& progress) {
                                    return ReadGridFile(reading.path, progress, reading.options);
                                });
}

PointFile ReadPointsForWindow(QWidget* parent, const QString& path) {
    return ReadAsking<PointFile>(parent, AskingReading(path), [](const Reading& reading, const Progress&) {
        return ReadPointFile(reading.path, reading.options);
    });
}

} // namespace KivoViewer
