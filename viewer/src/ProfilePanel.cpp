#include "ProfilePanel.h"

#include "ListPanel.h"
#include "Numbers.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace KivoViewer {

namespace {

// From one number to another, at least a little apart.
struct Span {
    double from = std::numeric_limits<double>::infinity();
    double to = -std::numeric_limits<double>::infinity();

    void Add(double number) {
        if (!std::isfinite(number)) return;
        from = std::min(from, number);
        to = std::max(to, number);
    }
    bool IsEmpty() const { return from > to; }
    double Length() const { return to - from; }
};

// The step of 1, 2 or 5 times a power of ten that is at least as large.
double RoundStep(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1.0 - 1e-9)) return factor * power;
    return 10.0 * power;
}

// Where the curves are drawn, and what from.
class ProfileFrame {
public:
    ProfileFrame(const QRectF& area, const SceneProfile& profile, const QFontMetricsF& metrics) {
        for (const ProfilePoint& point : profile.points) {
            m_distances.Add(point.distance);
            for (const double z : point.z)
                m_heights.Add(z);
        }
        if (m_heights.IsEmpty()) m_heights = {0.0, 1.0};
        const double least = std::max(1e-6 * std::abs(m_heights.from), 1e-12);
        const double margin = std::max(0.05 * m_heights.Length(), least);
        m_heights = {m_heights.from - margin, m_heights.to + margin};
        const double row = metrics.height();
        m_heightStep = RoundStep(m_heights.Length() / std::clamp(area.height() / (2.5 * row), 2.0, 8.0));
        double widest = 0.0;
        ForEachTick(m_heights, m_heightStep, [&](double number) {
            widest = std::max(widest, metrics.horizontalAdvance(Text(number, m_heightStep)));
        });
        m_plot = area.adjusted(widest + 14.0, 0.5 * row + 4.0, -12.0 - row, -row - 10.0);
        const double columns = std::clamp(m_plot.width() / (9.0 * metrics.averageCharWidth()), 2.0, 10.0);
        m_distanceStep = RoundStep(m_distances.IsEmpty() ? 1.0 : m_distances.Length() / columns);
    }

    const QRectF& Plot() const { return m_plot; }
    QPointF At(double distance, double height) const {
        return {m_plot.left() + m_plot.width() * distance / m_distances.to,
                m_plot.bottom() - m_plot.height() * (height - m_heights.from) / m_heights.Length()};
    }
    double DistanceAt(double x) const {
        return std::clamp((x - m_plot.left()) / m_plot.width(), 0.0, 1.0) * m_distances.to;
    }
    template <typename Draw>
    void ForEachDistance(Draw draw) const {
        ForEachTick(m_distances, m_distanceStep,
                    [&](double number) { draw(number, Text(number, m_distanceStep)); });
    }
    template <typename Draw>
    void ForEachHeight(Draw draw) const {
        ForEachTick(m_heights, m_heightStep,
                    [&](double number) { draw(number, Text(number, m_heightStep)); });
    }

private:
    static QString Text(double number, double step) {
        return QString::fromStdString(FormatStep(number, step));
    }
    template <typename Visit>
    static void ForEachTick(const Span& span, double step, Visit visit) {
        const double first = std::ceil(span.from / step - 1e-9);
        for (int i = 0; i < 100 && (first + i) * step <= span.to + 1e-9 * step; ++i)
            visit((first + i) * step);
    }

    Span m_distances;
    Span m_heights;
    double m_distanceStep = 1.0;
    double m_heightStep = 1.0;
    QRectF m_plot;
};

// A surface of its own colours has that of the first curve: the text's.
QColor CurveColor(const SceneProfile& profile, std::size_t surface, const QPalette& palette) {
    const std::optional<Color>& color = profile.colors[surface];
    return color ? ToQt(*color) : palette.color(QPalette::Highlight);
}

void PaintAxes(QPainter& painter, const ProfileFrame& frame, const QPalette& palette) {
    const QRectF& plot = frame.Plot();
    QColor pale = palette.color(QPalette::Text);
    pale.setAlpha(40);
    const QPen lines(pale), texts(palette.color(QPalette::Text));
    const double row = painter.fontMetrics().height();
    frame.ForEachDistance([&](double number, const QString& text) {
        const double x = frame.At(number, 0.0).x();
        painter.setPen(lines);
        painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
        painter.setPen(texts);
        painter.drawText(QRectF(x - 100.0, plot.bottom() + 4.0, 200.0, row), Qt::AlignCenter, text);
    });
    frame.ForEachHeight([&](double number, const QString& text) {
        const double y = frame.At(0.0, number).y();
        painter.setPen(lines);
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(texts);
        painter.drawText(QRectF(plot.left() - 206.0, y - row, 200.0, 2.0 * row),
                         Qt::AlignRight | Qt::AlignVCenter, text);
    });
    painter.setPen(texts);
    painter.drawLine(plot.topLeft(), plot.bottomLeft());
    painter.drawLine(plot.bottomLeft(), plot.bottomRight());
}

// Gaps stay open.
QPainterPath CurveOf(const ProfileFrame& frame, const SceneProfile& profile, std::size_t surface) {
    QPainterPath path;
    bool isInGap = true;
    for (const ProfilePoint& point : profile.points) {
        const bool isMissing = !std::isfinite(point.z[surface]);
        const QPointF at = frame.At(point.distance, isMissing ? 0.0 : point.z[surface]);
        if (!isMissing && isInGap) path.moveTo(at);
        if (!isMissing && !isInGap) path.lineTo(at);
        isInGap = isMissing;
    }
    return path;
}

} // namespace

void PaintProfile(QPainter& painter, const QRectF& area, const SceneProfile& profile, const QPalette& palette,
                  std::optional<double> pointed) {
    painter.fillRect(area, palette.color(QPalette::Base));
    painter.setRenderHint(QPainter::Antialiasing);
    if (profile.points.empty()) {
        painter.setPen(palette.color(QPalette::Text));
        painter.drawText(
            area, Qt::AlignCenter | Qt::TextWordWrap,
            ProfilePanel::tr("Press, drag and release the left button in the flat plot of XY: the heights "
                             "along that line are shown here."));
        return;
    }
    const ProfileFrame frame(area, profile, QFontMetricsF(painter.font(), painter.device()));
    PaintAxes(painter, frame, palette);
    painter.setClipRect(frame.Plot().adjusted(-1.0, -1.0, 1.0, 1.0));
    for (std::size_t i = profile.names.size(); i-- > 0;) {
        painter.setPen(QPen(CurveColor(profile, i, palette), 2.0));
        painter.drawPath(CurveOf(frame, profile, i));
    }
    if (!pointed) return;
    painter.setPen(palette.color(QPalette::Text));
    const double x = frame.At(*pointed, 0.0).x();
    painter.drawLine(QPointF(x, frame.Plot().top()), QPointF(x, frame.Plot().bottom()));
    for (std::size_t i = 0; i < profile.names.size(); ++i) {
        const double height = HeightAt(profile.points, i, *pointed);
        if (!std::isfinite(height)) continue;
        painter.setBrush(CurveColor(profile, i, palette));
        painter.drawEllipse(frame.At(*pointed, height), 4.0, 4.0);
    }
}

// ---- The curves -----------------------------------------------------------------------------------------

ProfilePlot::ProfilePlot(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setMinimumSize(240, 100);
}

void ProfilePlot::Show(const SceneProfile& profile) {
    m_profile = profile;
    m_pointed.reset();
    update();
}

void ProfilePlot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintProfile(painter, rect(), m_profile, palette(), m_pointed);
}

void ProfilePlot::mouseMoveEvent(QMouseEvent* event) {
    if (m_profile.points.empty()) return;
    const ProfileFrame frame(rect(), m_profile, QFontMetricsF(font(), this));
    PointAt(frame.DistanceAt(event->position().x()));
}

void ProfilePlot::leaveEvent(QEvent*) {
    PointAt(std::nullopt);
}

void ProfilePlot::PointAt(std::optional<double> distance) {
    m_pointed = distance;
    update();
    if (pointed) pointed(distance);
}

// ---- The panel ------------------------------------------------------------------------------------------

ProfilePanel::ProfilePanel(Actions actions)
    : m_actions(std::move(actions)), m_plot(new ProfilePlot(this)), m_words(new QLabel(this)),
      m_buttons(new QWidget(this)) {
    auto* const table = new QPushButton(tr("Save as &CSV..."), m_buttons);
    auto* const picture = new QPushButton(tr("Save as p&icture..."), m_buttons);
    connect(table, &QPushButton::clicked, this, [this] { m_actions.saveTable(); });
    connect(picture, &QPushButton::clicked, this, [this] { m_actions.savePicture(); });
    auto* const buttons = new QHBoxLayout(m_buttons);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addWidget(table);
    buttons->addWidget(picture);
    auto* const last = new QHBoxLayout;
    last->addWidget(m_words, 1);
    last->addWidget(m_buttons);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(4, 4, 4, 4);
    rows->addWidget(m_plot, 1);
    rows->addLayout(last);
    m_words->setMinimumWidth(1);           // long words must not widen the window
    m_words->setTextFormat(Qt::PlainText); // of names of files
    m_buttons->setEnabled(false);
    m_plot->pointed = [this](std::optional<double> distance) { Point(distance); };
}

void ProfilePanel::Show(const SceneProfile& profile) {
    m_profile = profile;
    m_plot->Show(profile);
    m_words->clear();
    m_buttons->setEnabled(!profile.points.empty());
}

void ProfilePanel::Point(std::optional<double> distance) {
    QString words;
    if (distance) {
        const auto say = [](double number) {
            return QString::fromStdString(FormatRounded(static_cast<float>(number)));
        };
        words = tr("Distance %1").arg(say(*distance));
        for (std::size_t i = 0; i < m_profile.names.size(); ++i) {
            const double height = HeightAt(m_profile.points, i, *distance);
            const QString name =
                m_profile.names.size() > 1 ? QString::fromStdString(m_profile.names[i]) : QStringLiteral("z");
            if (std::isfinite(height)) words += QStringLiteral("   %1 = %2").arg(name, say(height));
        }
    }
    m_words->setText(words);
    m_actions.pointed(distance);
}

QImage ProfilePanel::Picture(double density) const {
    QImage image((m_plot->size() * density), QImage::Format_RGB32);
    image.setDevicePixelRatio(density);
    QPainter painter(&image);
    painter.setFont(m_plot->font());
    PaintProfile(painter, QRectF(QPointF(), m_plot->size()), m_profile, m_plot->palette(), std::nullopt);
    return image;
}

} // namespace KivoViewer
