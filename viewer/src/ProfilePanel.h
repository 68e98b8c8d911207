// The panel with heights along a line.
#pragma once

#include "PlotScene.h"

#include <QCoreApplication>
#include <QWidget>

#include <functional>
#include <optional>

class QImage;
class QLabel;

namespace KivoViewer {

/// Draws a profile with axes: distance to the right, height upwards, a line for each surface.
/// @param area       in the painter's coordinates
/// @param pointed    distance that is marked with its heights
void PaintProfile(QPainter& painter, const QRectF& area, const SceneProfile& profile, const QPalette& palette,
                  std::optional<double> pointed);

/// The curves of a profile, and what the pointer shows of them.
class ProfilePlot : public QWidget {
public:
    explicit ProfilePlot(QWidget* parent);

    void Show(const SceneProfile& profile);
    /// The distance under the pointer has become another one.
    std::function<void(std::optional<double>)> pointed;

    QSize sizeHint() const override { return {600, 180}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void PointAt(std::optional<double> distance);

    SceneProfile m_profile;
    std::optional<double> m_pointed;
};

class ProfilePanel : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(ProfilePanel)

public:
    struct Actions {
        std::function<void(std::optional<double>)> pointed; ///< the distance under the pointer
        std::function<void()> saveTable;
        std::function<void()> savePicture;
    };

    explicit ProfilePanel(Actions actions);

    void Show(const SceneProfile& profile);
    const SceneProfile& Profile() const { return m_profile; }
    /// The plot as a picture, so many times as fine as the screen.
    QImage Picture(double density) const;

private:
    void Point(std::optional<double> distance);

    Actions m_actions;
    SceneProfile m_profile;
    ProfilePlot* m_plot;
    QLabel* m_words;
    QWidget* m_buttons;
};

} // namespace KivoViewer
