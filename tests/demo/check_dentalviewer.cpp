// Checks what the dental viewer's end-to-end script left behind.
//   check_dentalviewer dump FILE [--lengths N] [--areas N] [--length-mm MM] [--text TEXT]
//   [--notation N]
//                               [--view ID] [--reslice ID POSITION]
//   check_dentalviewer image FILE [--measurement-pixels MIN]
// Prints every failed expectation and exits with 1 when there was one.

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QStringList>
#include <cmath>
#include <cstdio>

namespace {

int failures = 0;

void expect(bool condition, const QString& what)
{
    if (!condition) {
        ++failures;
        std::fprintf(stderr, "FAIL: %s\n", qPrintable(what));
    }
}

QString option(const QStringList& args, const QString& name)
{
    const int index = args.indexOf(name);
    return index >= 0 && index + 1 < args.size() ? args.at(index + 1) : QString();
}

void collectStrings(const QJsonValue& value, QSet<QString>& strings)
{
    if (value.isString()) {
        strings.insert(value.toString());
    } else if (value.isArray()) {
        for (const QJsonValue& item : value.toArray())
            collectStrings(item, strings);
    } else if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it) {
            strings.insert(it.key());
            collectStrings(it.value(), strings);
        }
    }
}

void checkDump(const QString& fileName, const QStringList& args)
{
    QFile file(fileName);
    expect(file.open(QIODevice::ReadOnly), fileName + QStringLiteral(" can be read"));
    const QJsonObject dump = QJsonDocument::fromJson(file.readAll()).object();
    expect(!dump.isEmpty(), fileName + QStringLiteral(" holds a JSON object"));

    const QJsonArray measurements = dump.value(QStringLiteral("document"))
                                        .toObject()
                                        .value(QStringLiteral("measurements"))
                                        .toArray();
    QList<QJsonObject> lengths, areas, texts;
    for (const QJsonValue& value : measurements) {
        const QJsonObject measurement = value.toObject();
        const QString kind = measurement.value(QStringLiteral("kind")).toString();
        if (kind == QLatin1String("length"))
            lengths.append(measurement);
        else if (kind == QLatin1String("area"))
            areas.append(measurement);
        else if (kind == QLatin1String("text"))
            texts.append(measurement);
    }

    const QString lengthCount = option(args, QStringLiteral("--lengths"));
    if (!lengthCount.isEmpty())
        expect(lengths.size() == lengthCount.toInt(),
            QStringLiteral("%1 length measurement(s), found %2")
                .arg(lengthCount)
                .arg(lengths.size()));

    const QString areaCount = option(args, QStringLiteral("--areas"));
    if (!areaCount.isEmpty())
        expect(areas.size() == areaCount.toInt(),
            QStringLiteral("%1 area measurement(s), found %2").arg(areaCount).arg(areas.size()));
    for (const QJsonObject& area : areas) {
        const QString text = area.value(QStringLiteral("text")).toString();
        expect(text.endsWith(QStringLiteral(" mm²"))
                && text.section(QLatin1Char(' '), 0, 0).toDouble() > 0,
            QStringLiteral("an area labelled in mm², not \"%1\"").arg(text));
        expect(area.value(QStringLiteral("points")).toArray().size() >= 3,
            QStringLiteral("a closed area has at least three corners"));
    }

    const QString lengthMm = option(args, QStringLiteral("--length-mm"));
    if (!lengthMm.isEmpty()) {
        bool found = false;
        for (const QJsonObject& length : lengths) {
            const QString text = length.value(QStringLiteral("text")).toString();
            const double shown = text.section(QLatin1Char(' '), 0, 0).toDouble();
            found = found
                || (text.endsWith(QLatin1String(" mm"))
                    && std::abs(shown - lengthMm.toDouble()) < 0.15);
        }
        expect(found, QStringLiteral("a length labelled %1 mm").arg(lengthMm));
    }

    const QString text = option(args, QStringLiteral("--text"));
    if (!text.isEmpty()) {
        bool found = false;
        for (const QJsonObject& note : texts)
            found = found || note.value(QStringLiteral("text")).toString() == text;
        expect(found, QStringLiteral("a text annotation reading \"%1\"").arg(text));
    }

    // --reslice ID POSITION: the cross-section's position along the arch, to two hundredths.
    const int reslice = args.indexOf(QStringLiteral("--reslice"));
    if (reslice >= 0 && reslice + 2 < args.size()) {
        const QJsonValue position = dump.value(QStringLiteral("document"))
                                        .toObject()
                                        .value(QStringLiteral("reslices"))
                                        .toObject()
                                        .value(args.at(reslice + 1));
        expect(position.isDouble()
                && std::abs(position.toDouble() - args.at(reslice + 2).toDouble()) < 0.02,
            QStringLiteral("%1 resliced at %2, found %3")
                .arg(args.at(reslice + 1), args.at(reslice + 2))
                .arg(position.toDouble()));
    }

    const QString notation = option(args, QStringLiteral("--notation"));
    if (!notation.isEmpty())
        expect(dump.value(QStringLiteral("notation")).toString() == notation,
            QStringLiteral("notation %1").arg(notation));

    const QString view = option(args, QStringLiteral("--view"));
    if (!view.isEmpty())
        expect(dump.value(QStringLiteral("currentViewOrSubView")).toString() == view,
            QStringLiteral("current view %1").arg(view));

    expect(dump.value(QStringLiteral("runningAction")).toString().isEmpty(),
        QStringLiteral("no tool left running"));

    // The state tree names every view and refers to every measurement of the document.
    QSet<QString> strings;
    collectStrings(dump.value(QStringLiteral("state")), strings);
    for (const char* id : {"Panoramic", "Cross-section A", "Cross-section B", "Tooth chart"})
        expect(strings.contains(QString::fromLatin1(id)),
            QStringLiteral("state tree has a node for %1").arg(QString::fromLatin1(id)));
    for (const QJsonValue& value : measurements) {
        const QString id = value.toObject().value(QStringLiteral("id")).toString();
        expect(strings.contains(id), QStringLiteral("state tree refers to measurement %1").arg(id));
    }
}

void checkImage(const QString& fileName, const QStringList& args)
{
    const QImage image = QImage(fileName).convertToFormat(QImage::Format_RGB32);
    expect(!image.isNull(), fileName + QStringLiteral(" is an image"));
    if (image.isNull())
        return;
    QSet<QRgb> colours;
    double sum = 0, sumSquares = 0;
    qint64 measurementPixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = line[x];
            if (colours.size() < 4096)
                colours.insert(pixel);
            const int grey = qGray(pixel);
            sum += grey;
            sumSquares += double(grey) * grey;
            // The measurement line and its label are the only saturated yellow in the viewer.
            if (qRed(pixel) > 200 && qGreen(pixel) > 200 && qBlue(pixel) < 90)
                ++measurementPixels;
        }
    }
    const double count = double(image.width()) * image.height();
    const double deviation
        = std::sqrt(std::max(0.0, sumSquares / count - std::pow(sum / count, 2)));
    expect(colours.size() > 64 && deviation > 8.0,
        QStringLiteral("%1 is not blank (%2 colours, deviation %3)")
            .arg(fileName)
            .arg(colours.size())
            .arg(deviation, 0, 'f', 1));
    const QString minimum = option(args, QStringLiteral("--measurement-pixels"));
    if (!minimum.isEmpty())
        expect(measurementPixels >= minimum.toLongLong(),
            QStringLiteral("%1 shows the measurement (%2 line pixels, at least %3 wanted)")
                .arg(fileName)
                .arg(measurementPixels)
                .arg(minimum));
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 3) {
        std::fprintf(stderr, "usage: %s dump|image FILE [options]\n", argv[0]);
        return 2;
    }
    if (args.at(1) == QLatin1String("dump"))
        checkDump(args.at(2), args);
    else if (args.at(1) == QLatin1String("image"))
        checkImage(args.at(2), args);
    else
        return 2;
    if (failures == 0)
        std::printf("ok: %s\n", qPrintable(args.at(2)));
    return failures == 0 ? 0 : 1;
}
