#include "SyntheticImages.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QRandomGenerator>
#include <cmath>

namespace synthetic {

namespace {

constexpr int TEETH_PER_ARCH = 16;

// Vertical position of an arch at x: the arches curve like a smile in a panoramic projection.
double archY(double x, bool upper)
{
    const double t = (x - PANORAMIC_WIDTH / 2.0) / (PANORAMIC_WIDTH / 2.0);
    return (upper ? 200.0 : 300.0) - 40.0 * t * t * (upper ? 1.0 : -1.0) * -1.0;
}

double toothX(int indexInRow)
{
    return 150.0 + indexInRow * (PANORAMIC_WIDTH - 300.0) / (TEETH_PER_ARCH - 1);
}

void addNoise(QImage& image, int amplitude, quint32 seed)
{
    QRandomGenerator random(seed);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int noise = int(random.bounded(2 * amplitude + 1)) - amplitude;
            const int grey = qBound(0, qGray(line[x]) + noise, 255);
            line[x] = qRgb(grey, grey, grey);
        }
    }
}

} // namespace

QList<QPointF> panoramicToothCentres()
{
    QList<QPointF> centres;
    // Universal 1..16: upper arch from the patient's right, drawn on the image's left.
    for (int i = 0; i < TEETH_PER_ARCH; ++i)
        centres.append(QPointF(toothX(i), archY(toothX(i), true) - 45));
    // Universal 17..32: lower arch from the patient's left, drawn on the image's right.
    for (int i = 0; i < TEETH_PER_ARCH; ++i) {
        const double x = toothX(TEETH_PER_ARCH - 1 - i);
        centres.append(QPointF(x, archY(x, false) + 45));
    }
    return centres;
}

QImage panoramic()
{
    QImage image(PANORAMIC_WIDTH, PANORAMIC_HEIGHT, QImage::Format_RGB32);
    image.fill(QColor(28, 28, 28));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);

    // Mandible and maxilla as broad soft bands.
    QPainterPath jaw;
    jaw.moveTo(40, 120);
    jaw.cubicTo(200, 40, 1000, 40, 1160, 120);
    jaw.lineTo(1160, 420);
    jaw.cubicTo(1000, 500, 200, 500, 40, 420);
    jaw.closeSubpath();
    painter.fillPath(jaw, QColor(70, 70, 70));
    painter.setPen(QPen(QColor(120, 120, 120), 6));
    painter.drawPath(jaw);

    // Teeth: crowns bright, roots fading towards the bone.
    const QList<QPointF> centres = panoramicToothCentres();
    for (int i = 0; i < centres.size(); ++i) {
        const bool upper = i < TEETH_PER_ARCH;
        const int inRow = upper ? i : i - TEETH_PER_ARCH;
        const bool molar = inRow < 3 || inRow > 12;
        const double width = molar ? 52 : 38;
        const QPointF c = centres[i];
        const QRectF crown(c.x() - width / 2, upper ? c.y() + 5 : c.y() - 45, width, 40);
        const QRectF root(c.x() - width / 4, upper ? c.y() - 80 : c.y() - 5, width / 2, 85);
        QLinearGradient rootFill(root.topLeft(), root.bottomLeft());
        rootFill.setColorAt(upper ? 0 : 1, QColor(90, 90, 90));
        rootFill.setColorAt(upper ? 1 : 0, QColor(180, 180, 180));
        painter.setPen(Qt::NoPen);
        painter.setBrush(rootFill);
        painter.drawRoundedRect(root, 10, 10);
        painter.setBrush(QColor(225, 225, 225));
        painter.drawRoundedRect(crown, 12, 12);
    }
    painter.end();
    addNoise(image, 6, 42);
    return image;
}

QImage crossSection(double archPosition)
{
    const double position = qBound(0.0, archPosition, 1.0);
    QImage image(400, 400, QImage::Format_RGB32);
    image.fill(QColor(20, 20, 20));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    // The bone narrows towards the front of the arch.
    const double boneWidth = 140 - 60 * std::sin(position * M_PI);
    QPainterPath bone;
    bone.addRoundedRect(QRectF(200 - boneWidth / 2, 60, boneWidth, 300), 50, 50);
    painter.fillPath(bone, QColor(90, 90, 90));
    painter.setPen(QPen(QColor(170, 170, 170), 8));
    painter.drawPath(bone);
    // A tooth and its canal.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(220, 220, 220));
    painter.drawRoundedRect(QRectF(170, 30, 60, 180), 25, 25);
    painter.setBrush(QColor(60, 60, 60));
    painter.drawRoundedRect(QRectF(195, 80, 10, 120), 5, 5);
    // The mandibular canal moves with the arch position.
    painter.setBrush(QColor(40, 40, 40));
    painter.drawEllipse(QPointF(200 + 30 * std::cos(position * M_PI), 300), 14, 14);
    painter.end();
    addNoise(image, 5, quint32(1000 * position) + 7);
    return image;
}

} // namespace synthetic
