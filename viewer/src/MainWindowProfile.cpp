// MainWindow: heights along a line of the XY plot.
#include "Failure.h"
#include "MainWindow.h"
#include "PlotWidget.h"
#include "ProfileMode.h"
#include "ProfilePanel.h"

#include <QCoreApplication>
#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QStatusBar>

namespace KivoViewer {

void MainWindow::MakeProfile(const std::optional<ProfileLine>& line) {
    m_profile = new ProfilePanel({[this](std::optional<double> distance) { m_plot->MarkProfile(distance); },
                                  [this] { SaveProfileTable(); }, [this] { SaveProfilePicture(); }});
    m_profileDock = new QDockWidget(tr("Profile"), this);
    m_profileDock->setObjectName("profile");
    m_profileDock->setWidget(m_profile);
    addDockWidget(Qt::BottomDockWidgetArea, m_profileDock);
    m_profileDock->setVisible(line.has_value());
    m_profileLine = line;
    m_plot->profileDrawn = [this](const ProfileLine& drawn) { ShowProfile(drawn); };
    connect(m_profileDock->toggleViewAction(), &QAction::toggled, this, [this] { RefreshProfile(); });
}

// The line is drawn in the XY plot, which the hand asks for with the panel.
void MainWindow::ShowProfilePanel() {
    if (!m_profileDock->isHidden() && Scene().Settings().mode != xyMode) ChangeMode(xyMode);
    RefreshControls();
}

void MainWindow::ShowProfile(const ProfileLine& line) {
    m_profileLine = line;
    RefreshProfile();
}

// The line of a session. One that is not seen stays as it is where there is no other.
void MainWindow::TakeProfile(const std::optional<ProfileLine>& line) {
    if (line || !m_profileDock->isHidden()) m_profileLine = line;
    if (line) m_profileDock->show();
}

// Of what is shown now.
void MainWindow::RefreshProfile() {
    const bool isOpen = !m_profileDock->isHidden();
    m_plot->DrawProfiles(isOpen);
    m_plot->ShowProfileLine(isOpen ? m_profileLine : std::nullopt);
    if (isOpen) m_profile->Show(m_profileLine ? Scene().ProfileAlong(*m_profileLine) : SceneProfile());
}

void MainWindow::SaveProfileTable() {
    QString path =
        QFileDialog::getSaveFileName(this, tr("Save the profile"), "profile.csv", tr("Tables") + " (*.csv)");
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += ".csv";
    Try(this, [&] {
        WriteTextFile(QFile::encodeName(path).toStdString(), ProfileTable(m_profile->Profile().points));
        statusBar()->showMessage(tr("Saved %1").arg(path));
    });
}

void MainWindow::SaveProfilePicture() {
    constexpr double density = 2.0;
    QString path = QFileDialog::getSaveFileName(this, tr("Save the picture of the profile"), "profile.png",
                                                tr("Pictures") + " (*.png *.jpg)");
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += ".png";
    Try(this, [&] {
        if (!m_profile->Picture(density).save(path))
            throw Failure(QFile::encodeName(path).toStdString() + ": " +
                          tr("it cannot be written").toStdString());
        statusBar()->showMessage(tr("Saved %1").arg(path));
    });
}

} // namespace KivoViewer
