// Files as a window reads them: in the background, and asking what they leave open.
#pragma once

#include "GridData.h"
#include "PointFile.h"

class QString;
class QWidget;

namespace KivoViewer {

/// A file that is read with questions.
Reading AskingReading(const QString& path);

/// What is wrong with a file is told, with the offer to read it otherwise. Both throw Cancelled where the
/// user wants an end of it.
GridData ReadGridForWindow(QWidget* parent, const Reading& reading);
PointFile ReadPointsForWindow(QWidget* parent, const QString& path);

} // namespace KivoViewer
