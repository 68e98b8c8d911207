// Files as a window reads them: in the background, and asking what they leave open.
#pragma once

#include "GridData.h"
#include "PointFile.h"

class QString;
class QWidget;

namespace KivoViewer {

/// Both throw a Failure, and Cancelled where the user wants an end of it.
GridData ReadGridForWindow(QWidget* parent, const QString& path);
PointFile ReadPointsForWindow(QWidget* parent, const QString& path);

} // namespace KivoViewer
