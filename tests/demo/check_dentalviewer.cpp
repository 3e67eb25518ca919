// Checks what the dental viewer's end-to-end script left behind.
//   check_dentalviewer dump FILE [--lengths N] [--areas N] [--length-mm MM] [--text TEXT]
//       [--notation N] [--view ID] [--reslice ID POSITION]... [--label-offset X Y]
//       [--label-size PIXELS] [--selected-tooth NAME] [--status TEXT]...
//       [--active-sub-view MULTI SUB] [--zoomed-in VIEW W H] [--fitted VIEW W H]
//       [--zoom-like FILE VIEW] [--panned-from FILE VIEW DX DY]
//       [--notes N] [--note TEXT] [--status-bar TEXT] [--problem TEXT] [--running ID]
//       [--disabled ID TEXT] [--drawn NAME]... [--not-drawn NAME]... [--inside-viewport NAME]...
//       [--fits-screen] [--window-size W H] [--window-color COLOR] [--buttons-like FILE]
//       [--chart-layout] [--shortcut NAME KEYS]...
//   check_dentalviewer image FILE [--measurement-pixels MIN] [--measurement-run MIN]
//       [--label-fits DUMP NAME] [--contrast DUMP PREFIX MIN] [--selection-stronger DUMP]
//       [--no-dragger-in DUMP NAME]
// Reslices, the numbering and label positions are read from the dumped ui state tree; what is
// drawn (labels, the chart's teeth) from the dump's window-coordinate boxes, which an image
// check scales by the dump's device pixel ratio. A NOTE's "\n" stands for a line break.
// Prints every failed expectation and exits with 1 when there was one.

#include <QColor>
#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineF>
#include <QRectF>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

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

QJsonObject properties(const QJsonObject& node, const QString& level)
{
    return node.value(QStringLiteral("properties")).toObject().value(level).toObject();
}

QJsonArray children(const QJsonObject& node)
{
    return node.value(QStringLiteral("children")).toArray();
}

// The state tree's nodes of the given type, depth first.
void collectNodes(const QJsonObject& node, const QString& type, QList<QJsonObject>& found)
{
    if (node.value(QStringLiteral("type")).toString() == type)
        found.append(node);
    for (const QJsonValue& child : children(node))
        collectNodes(child.toObject(), type, found);
}

// The view node of the given view below the root, or an empty object.
QJsonObject viewNode(const QJsonObject& root, const QString& viewId)
{
    for (const QJsonValue& child : children(root)) {
        const QJsonObject node = child.toObject();
        if (node.value(QStringLiteral("type")).toString() == QLatin1String("ViewNode")
            && properties(node, QStringLiteral("ViewNode")).value(QStringLiteral("viewId"))
                == viewId)
            return node;
    }
    return QJsonObject();
}

// A cross-section's position along the arch (0..1) as its reslice viewer node records it; NaN
// when the tree has no such node.
double reslicePosition(const QJsonObject& root, const QString& viewId)
{
    for (const QJsonValue& child : children(viewNode(root, viewId))) {
        const QJsonObject node = child.toObject();
        if (node.value(QStringLiteral("type")).toString()
            != QLatin1String("CrossSectionalResliceViewerNode"))
            continue;
        const QJsonObject own = properties(node, QStringLiteral("CrossSectionalResliceViewerNode"));
        const double slices = own.value(QStringLiteral("numberOfSlices")).toDouble();
        if (slices >= 2)
            return own.value(QStringLiteral("sliderIndex")).toDouble() / (slices - 1);
    }
    return std::nan("");
}

// Each occurrence of an option with the `count` values that follow it.
QList<QStringList> occurrences(const QStringList& args, const QString& name, int count)
{
    QList<QStringList> found;
    for (int i = args.indexOf(name); i >= 0 && i + count < args.size();
         i = args.indexOf(name, i + 1))
        found.append(args.mid(i + 1, count));
    return found;
}

QRectF rectOf(const QJsonValue& value)
{
    const QJsonObject box = value.toObject();
    return QRectF(box.value(QStringLiteral("x")).toDouble(),
        box.value(QStringLiteral("y")).toDouble(), box.value(QStringLiteral("width")).toDouble(),
        box.value(QStringLiteral("height")).toDouble());
}

// The drawn item of that name (a label, a chart tooth), or an empty object.
QJsonObject drawnItem(const QJsonObject& dump, const QString& name)
{
    for (const QJsonValue& item : dump.value(QStringLiteral("drawn")).toArray()) {
        if (item.toObject().value(QStringLiteral("name")).toString() == name)
            return item.toObject();
    }
    return QJsonObject();
}

// A drawn item's box in the pixels of a screenshot of the window.
QRect pixelBox(const QJsonObject& dump, const QJsonObject& item)
{
    const double ratio = dump.value(QStringLiteral("devicePixelRatio")).toDouble(1.0);
    const QRectF box = rectOf(item.value(QStringLiteral("box")));
    return QRectF(box.topLeft() * ratio, box.size() * ratio).toAlignedRect();
}

double luminance(const QColor& color)
{
    auto channel = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF())
        + 0.0722 * channel(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

bool isLabelText(QRgb pixel)
{
    return qRed(pixel) > 200 && qGreen(pixel) > 200 && qBlue(pixel) < 90;
}

// Pixels of the image inside `area` (clipped to the image) for which `test` holds.
int countPixels(const QImage& image, const QRect& area, const std::function<bool(QRgb)>& test)
{
    int count = 0;
    const QRect clipped = area.intersected(image.rect());
    for (int y = clipped.top(); y <= clipped.bottom(); ++y) {
        for (int x = clipped.left(); x <= clipped.right(); ++x)
            count += test(image.pixel(x, y)) ? 1 : 0;
    }
    return count;
}

QJsonObject readDump(const QString& fileName)
{
    QFile file(fileName);
    expect(file.open(QIODevice::ReadOnly), fileName + QStringLiteral(" can be read"));
    const QJsonObject dump = QJsonDocument::fromJson(file.readAll()).object();
    expect(!dump.isEmpty(), fileName + QStringLiteral(" holds a JSON object"));
    return dump;
}

QJsonObject stateRoot(const QJsonObject& dump)
{
    return dump.value(QStringLiteral("state")).toObject().value(QStringLiteral("root")).toObject();
}

// The zoom box the view's 2-D viewer node records; invalid when there is none.
QRectF zoomBox(const QJsonObject& root, const QString& viewId)
{
    for (const QJsonValue& child : children(viewNode(root, viewId))) {
        const QJsonArray box = properties(child.toObject(), QStringLiteral("Viewer2DNode"))
                                   .value(QStringLiteral("zoomBox"))
                                   .toArray();
        if (box.size() == 4)
            return QRectF(box.at(0).toDouble(), box.at(1).toDouble(), box.at(2).toDouble(),
                box.at(3).toDouble());
    }
    return QRectF();
}

QString describe(const QRectF& box)
{
    return QStringLiteral("(%1, %2, %3 x %4)")
        .arg(box.x(), 0, 'f', 1)
        .arg(box.y(), 0, 'f', 1)
        .arg(box.width(), 0, 'f', 1)
        .arg(box.height(), 0, 'f', 1);
}

void checkZoom(const QJsonObject& root, const QStringList& args)
{
    // --zoomed-in VIEW W H: the view shows less than the whole W x H image in both directions,
    // which a fitted view never does.
    const int zoomed = args.indexOf(QStringLiteral("--zoomed-in"));
    if (zoomed >= 0 && zoomed + 3 < args.size()) {
        const QRectF box = zoomBox(root, args.at(zoomed + 1));
        expect(box.isValid() && box.width() < args.at(zoomed + 2).toDouble() * 0.95
                && box.height() < args.at(zoomed + 3).toDouble() * 0.95,
            QStringLiteral("%1 zoomed in, found the zoom box %2")
                .arg(args.at(zoomed + 1), describe(box)));
    }
    // --fitted VIEW W H: the whole image is in view, and it fills one direction.
    const int fitted = args.indexOf(QStringLiteral("--fitted"));
    if (fitted >= 0 && fitted + 3 < args.size()) {
        const QRectF box = zoomBox(root, args.at(fitted + 1));
        const QRectF image(0, 0, args.at(fitted + 2).toDouble(), args.at(fitted + 3).toDouble());
        const bool fills
            = box.width() < image.width() * 1.05 || box.height() < image.height() * 1.05;
        expect(box.isValid() && box.adjusted(-1, -1, 1, 1).contains(image) && fills,
            QStringLiteral("%1 fitted to its image, found the zoom box %2")
                .arg(args.at(fitted + 1), describe(box)));
    }
    // --panned-from FILE VIEW DX DY: the zoom box of another dump, of the same size, moved by
    // DX DY scene units (to 3 % of its size).
    const int panned = args.indexOf(QStringLiteral("--panned-from"));
    if (panned >= 0 && panned + 4 < args.size()) {
        const QRectF before
            = zoomBox(stateRoot(readDump(args.at(panned + 1))), args.at(panned + 2));
        const QRectF box = zoomBox(root, args.at(panned + 2));
        const QPointF shift(args.at(panned + 3).toDouble(), args.at(panned + 4).toDouble());
        const double tolerance = before.width() * 0.03;
        expect(before.isValid() && box.isValid()
                && QLineF(box.center(), before.center() + shift).length() < tolerance
                && std::abs(box.width() - before.width()) < tolerance,
            QStringLiteral("%1 panned from %2 by (%3, %4), found %5")
                .arg(args.at(panned + 2), describe(before))
                .arg(shift.x())
                .arg(shift.y())
                .arg(describe(box)));
    }
    // --zoom-like FILE VIEW: the same zoom box as in another dump, to 3 % of its size.
    const int like = args.indexOf(QStringLiteral("--zoom-like"));
    if (like >= 0 && like + 2 < args.size()) {
        const QRectF wanted = zoomBox(stateRoot(readDump(args.at(like + 1))), args.at(like + 2));
        const QRectF box = zoomBox(root, args.at(like + 2));
        const double tolerance = wanted.width() * 0.03;
        expect(wanted.isValid() && box.isValid()
                && QLineF(box.center(), wanted.center()).length() < tolerance
                && std::abs(box.width() - wanted.width()) < tolerance,
            QStringLiteral("%1 zoomed to %2 as before, found %3")
                .arg(args.at(like + 2), describe(wanted), describe(box)));
    }
}

void checkDump(const QString& fileName, const QStringList& args)
{
    const QJsonObject dump = readDump(fileName);

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

    // --notes N and --note TEXT: the notes of the document, and one of them word for word.
    const QString noteCount = option(args, QStringLiteral("--notes"));
    if (!noteCount.isEmpty())
        expect(texts.size() == noteCount.toInt(),
            QStringLiteral("%1 note(s), found %2").arg(noteCount).arg(texts.size()));
    for (const QStringList& note : occurrences(args, QStringLiteral("--note"), 1)) {
        const QString wanted
            = QString(note.first()).replace(QStringLiteral("\\n"), QStringLiteral("\n"));
        QStringList seen;
        for (const QJsonObject& text : texts)
            seen.append(text.value(QStringLiteral("text")).toString());
        expect(seen.contains(wanted),
            QStringLiteral("a note reading \"%1\", found \"%2\"")
                .arg(wanted, seen.join(QStringLiteral("\", \""))));
    }

    // What the person is told: the status bar's hint, and a problem shown above the views.
    for (const char* key : {"status-bar", "problem"}) {
        const QString wanted = option(args, QStringLiteral("--") + QLatin1String(key));
        const QString field = QString::fromLatin1(key) == QLatin1String("problem")
            ? QStringLiteral("problem")
            : QStringLiteral("statusBar");
        if (!wanted.isEmpty())
            expect(dump.value(field).toString().contains(wanted),
                QStringLiteral("%1 says \"%2\", found \"%3\"")
                    .arg(QLatin1String(key), wanted, dump.value(field).toString()));
    }

    // --disabled ID TEXT: the tool is disabled and its tooltip says why.
    for (const QStringList& disabled : occurrences(args, QStringLiteral("--disabled"), 2)) {
        const QJsonObject action
            = dump.value(QStringLiteral("actions")).toObject().value(disabled[0]).toObject();
        expect(!action.isEmpty() && !action.value(QStringLiteral("enabled")).toBool()
                && action.value(QStringLiteral("tooltip")).toString().contains(disabled[1]),
            QStringLiteral("%1 disabled, saying \"%2\"; found enabled %3, \"%4\"")
                .arg(disabled[0], disabled[1])
                .arg(action.value(QStringLiteral("enabled")).toBool())
                .arg(action.value(QStringLiteral("tooltip")).toString()));
    }

    // Drawn items: present or absent, and inside the viewer's viewport.
    for (const QStringList& name : occurrences(args, QStringLiteral("--drawn"), 1))
        expect(!drawnItem(dump, name[0]).isEmpty(), QStringLiteral("%1 drawn").arg(name[0]));
    for (const QStringList& name : occurrences(args, QStringLiteral("--not-drawn"), 1))
        expect(drawnItem(dump, name[0]).isEmpty(), QStringLiteral("%1 not drawn").arg(name[0]));
    const QRectF viewport = rectOf(dump.value(QStringLiteral("viewport")));
    for (const QStringList& name : occurrences(args, QStringLiteral("--inside-viewport"), 1)) {
        const QRectF box = rectOf(drawnItem(dump, name[0]).value(QStringLiteral("box")));
        expect(!box.isEmpty() && viewport.adjusted(-0.5, -0.5, 0.5, 0.5).contains(box),
            QStringLiteral("%1 %2 inside the viewport %3")
                .arg(name[0], describe(box), describe(viewport)));
    }

    // The window: on the screen, of a size, in a palette.
    const QRectF window = rectOf(dump.value(QStringLiteral("window")));
    if (args.contains(QStringLiteral("--fits-screen"))) {
        const QRectF screen = rectOf(dump.value(QStringLiteral("screen")));
        expect(!window.isEmpty() && screen.contains(window),
            QStringLiteral("window %1 fits the screen %2").arg(describe(window), describe(screen)));
    }
    for (const QStringList& size : occurrences(args, QStringLiteral("--window-size"), 2)) {
        const QJsonArray found = dump.value(QStringLiteral("windowSize")).toArray();
        expect(found.at(0).toInt() == size[0].toInt() && found.at(1).toInt() == size[1].toInt(),
            QStringLiteral("a window of %1 x %2, found %3 x %4")
                .arg(size[0], size[1])
                .arg(found.at(0).toInt())
                .arg(found.at(1).toInt()));
    }
    const QString windowColor = option(args, QStringLiteral("--window-color"));
    if (!windowColor.isEmpty())
        expect(dump.value(QStringLiteral("windowColor")).toString() == windowColor,
            QStringLiteral("window colour %1, found %2")
                .arg(windowColor, dump.value(QStringLiteral("windowColor")).toString()));

    // --buttons-like FILE: the chart's buttons stand where they stood in the other dump.
    const QString buttonsLike = option(args, QStringLiteral("--buttons-like"));
    if (!buttonsLike.isEmpty()) {
        const QJsonObject before
            = readDump(buttonsLike).value(QStringLiteral("chartButtons")).toObject();
        const QJsonObject now = dump.value(QStringLiteral("chartButtons")).toObject();
        for (const QString& button : {QStringLiteral("previousTooth"), QStringLiteral("nextTooth")})
            expect(before.contains(button) && now.contains(button)
                    && std::abs(before.value(button).toDouble() - now.value(button).toDouble())
                        < 1.0,
                QStringLiteral("%1 stays at x %2, found %3")
                    .arg(button)
                    .arg(before.value(button).toDouble())
                    .arg(now.value(button).toDouble()));
    }

    // --chart-layout: every tooth number centred on its tooth, above the upper teeth and below
    // the lower ones.
    if (args.contains(QStringLiteral("--chart-layout"))) {
        for (int t = 1; t <= 32; ++t) {
            const QRectF tooth = rectOf(drawnItem(dump, QStringLiteral("chartTooth%1").arg(t))
                                            .value(QStringLiteral("box")));
            const QRectF label = rectOf(drawnItem(dump, QStringLiteral("chartLabel%1").arg(t))
                                            .value(QStringLiteral("box")));
            const bool placed
                = t <= 16 ? label.bottom() <= tooth.top() : label.top() >= tooth.bottom();
            expect(!tooth.isEmpty() && !label.isEmpty()
                    && std::abs(label.center().x() - tooth.center().x()) <= 2.0 && placed,
                QStringLiteral("number of tooth %1 %2 centred %3 its tooth %4")
                    .arg(t)
                    .arg(describe(label),
                        t <= 16 ? QStringLiteral("above") : QStringLiteral("below"),
                        describe(tooth)));
        }
    }

    // --shortcut NAME KEYS: the open shortcut list has that line.
    for (const QStringList& shortcut : occurrences(args, QStringLiteral("--shortcut"), 2)) {
        const QString keys
            = dump.value(QStringLiteral("shortcuts")).toObject().value(shortcut[0]).toString();
        expect(keys == shortcut[1],
            QStringLiteral("shortcut of %1 listed as %2, found \"%3\"")
                .arg(shortcut[0], shortcut[1], keys));
    }

    const QJsonObject root = stateRoot(dump);
    checkZoom(root, args);

    // --active-sub-view MULTI SUB: the multi view's node names its chosen sub view.
    const int active = args.indexOf(QStringLiteral("--active-sub-view"));
    if (active >= 0 && active + 2 < args.size()) {
        QStringList found;
        for (const QJsonValue& child : children(viewNode(root, args.at(active + 1)))) {
            const QJsonObject node = child.toObject();
            if (node.value(QStringLiteral("type")).toString() == QLatin1String("ViewNode"))
                found.append(properties(node, QStringLiteral("ViewNode"))
                                 .value(QStringLiteral("viewId"))
                                 .toString());
        }
        expect(found == QStringList {args.at(active + 2)},
            QStringLiteral("%1 records %2 as its sub view, found \"%3\"")
                .arg(args.at(active + 1), args.at(active + 2), found.join(QLatin1Char(','))));
    }

    // --reslice ID POSITION, repeatable: the cross-section's position along the arch, to two
    // hundredths.
    for (int i = args.indexOf(QStringLiteral("--reslice")); i >= 0 && i + 2 < args.size();
         i = args.indexOf(QStringLiteral("--reslice"), i + 1)) {
        const double position = reslicePosition(root, args.at(i + 1));
        expect(std::abs(position - args.at(i + 2).toDouble()) < 0.02,
            QStringLiteral("%1 resliced at %2 in the state tree, found %3")
                .arg(args.at(i + 1), args.at(i + 2))
                .arg(position));
    }

    // The numbering on screen, and as the tooth chart's numbering node in the state tree.
    const QString notation = option(args, QStringLiteral("--notation"));
    if (!notation.isEmpty()) {
        expect(dump.value(QStringLiteral("notation")).toString() == notation,
            QStringLiteral("notation %1 on screen").arg(notation));
        QList<QJsonObject> numberings;
        collectNodes(viewNode(root, QStringLiteral("Tooth chart")),
            QStringLiteral("ToothNumberingNode"), numberings);
        expect(numberings.size() == 1
                && properties(numberings.first(), QStringLiteral("ToothNumberingNode"))
                        .value(QStringLiteral("notation"))
                        .toString()
                    == notation,
            QStringLiteral("the tooth chart's node records notation %1").arg(notation));
    }

    // --label-offset X Y: some measurement's label sits there, relative to its last point.
    const int offset = args.indexOf(QStringLiteral("--label-offset"));
    if (offset >= 0 && offset + 2 < args.size()) {
        const QPointF wanted(args.at(offset + 1).toDouble(), args.at(offset + 2).toDouble());
        QList<QJsonObject> nodes;
        collectNodes(root, QStringLiteral("Measurement2DNode"), nodes);
        QStringList seen;
        bool found = false;
        for (const QJsonObject& node : nodes) {
            const QJsonArray xy = properties(node, QStringLiteral("Measurement2DNode"))
                                      .value(QStringLiteral("labelRelativePositions"))
                                      .toArray()
                                      .at(0)
                                      .toArray();
            const QPointF at(xy.at(0).toDouble(), xy.at(1).toDouble());
            seen.append(QStringLiteral("(%1, %2)").arg(at.x()).arg(at.y()));
            // The script's positions reach the viewer as whole viewport pixels.
            found = found || QLineF(at, wanted).length() < 2.0;
        }
        expect(found,
            QStringLiteral("a measurement label at (%1, %2) in the state tree, found %3")
                .arg(wanted.x())
                .arg(wanted.y())
                .arg(seen.join(QStringLiteral(", "))));
    }

    // --label-size PIXELS: every measurement label is drawn at that pixel size.
    const QString labelSize = option(args, QStringLiteral("--label-size"));
    if (!labelSize.isEmpty()) {
        const QJsonArray labels = dump.value(QStringLiteral("labels")).toArray();
        expect(!labels.isEmpty(), QStringLiteral("measurement labels are drawn"));
        for (const QJsonValue& label : labels)
            expect(label.toObject().value(QStringLiteral("pixelSize")).toInt() == labelSize.toInt(),
                QStringLiteral("label %1 at %2 pixels, found %3")
                    .arg(label.toObject().value(QStringLiteral("name")).toString(), labelSize)
                    .arg(label.toObject().value(QStringLiteral("pixelSize")).toInt()));
    }

    const QString tooth = option(args, QStringLiteral("--selected-tooth"));
    if (!tooth.isEmpty())
        expect(dump.value(QStringLiteral("selectedTooth")).toString() == tooth,
            QStringLiteral("tooth %1 selected in the chart, found \"%2\"")
                .arg(tooth, dump.value(QStringLiteral("selectedTooth")).toString()));

    // --status TEXT, repeatable: what the window reports about the saved state it read.
    for (const QStringList& status : occurrences(args, QStringLiteral("--status"), 1))
        expect(dump.value(QStringLiteral("statusMessage")).toString().contains(status[0]),
            QStringLiteral("the window reports \"%1\", found \"%2\"")
                .arg(status[0], dump.value(QStringLiteral("statusMessage")).toString()));

    const QString view = option(args, QStringLiteral("--view"));
    if (!view.isEmpty())
        expect(dump.value(QStringLiteral("currentViewOrSubView")).toString() == view,
            QStringLiteral("current view %1").arg(view));

    const QString running = option(args, QStringLiteral("--running"));
    expect(dump.value(QStringLiteral("runningAction")).toString() == running,
        running.isEmpty() ? QStringLiteral("no tool left running")
                          : QStringLiteral("%1 running").arg(running));

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
    // Columns where a band of three rows holds a yellowish pixel, band by band: a measured line
    // is one long unbroken run, the glyphs of a label are short ones with gaps between them.
    // Yellowish also takes the line's antialiased edge, blended with the grey image.
    auto yellowish = [](QRgb pixel) {
        const int low = std::min(qRed(pixel), qGreen(pixel));
        return low > 120 && qBlue(pixel) < low / 2 && std::abs(qRed(pixel) - qGreen(pixel)) < 40;
    };
    int longestRun = 0;
    for (int y = 0; y + 2 < image.height(); ++y) {
        int run = 0;
        for (int x = 0; x < image.width(); ++x) {
            bool hit = false;
            for (int row = y; row < y + 3 && !hit; ++row)
                hit = yellowish(reinterpret_cast<const QRgb*>(image.constScanLine(row))[x]);
            run = hit ? run + 1 : 0;
            longestRun = std::max(longestRun, run);
        }
    }
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

    // --label-fits DUMP NAME: the label's text lies inside its box: text pixels in it, none in
    // the strips just right of it and above it, where a text that outgrew its box would run.
    for (const QStringList& fit : occurrences(args, QStringLiteral("--label-fits"), 2)) {
        const QJsonObject dump = readDump(fit[0]);
        const QRect box = pixelBox(dump, drawnItem(dump, fit[1]));
        const int inside = countPixels(image, box, isLabelText);
        const int right = countPixels(
            image, QRect(box.right() + 1, box.top() - 4, 40, box.height() + 4), isLabelText);
        const int above = countPixels(
            image, QRect(box.left(), box.top() - 30, box.width() + 40, 30), isLabelText);
        expect(!box.isEmpty() && inside > 20 && right == 0 && above == 0,
            QStringLiteral("%1: the text of %2 inside its box (%3 text pixels in it, %4 right of "
                           "it, %5 above it)")
                .arg(fileName, fit[1])
                .arg(inside)
                .arg(right)
                .arg(above));
    }
    // --contrast DUMP PREFIX MIN: every drawn label whose name starts with PREFIX shows its
    // text colour, at a contrast of at least MIN against the median colour of its box.
    for (const QStringList& check : occurrences(args, QStringLiteral("--contrast"), 3)) {
        const QJsonObject dump = readDump(check[0]);
        int labels = 0;
        for (const QJsonValue& value : dump.value(QStringLiteral("drawn")).toArray()) {
            const QJsonObject item = value.toObject();
            if (!item.value(QStringLiteral("name")).toString().startsWith(check[1]))
                continue;
            ++labels;
            const QColor text(item.value(QStringLiteral("color")).toString());
            const QRect box = pixelBox(dump, item).intersected(image.rect());
            QList<QRgb> pixels;
            for (int y = box.top(); y <= box.bottom(); ++y) {
                for (int x = box.left(); x <= box.right(); ++x)
                    pixels.append(image.pixel(x, y));
            }
            std::sort(
                pixels.begin(), pixels.end(), [](QRgb a, QRgb b) { return qGray(a) < qGray(b); });
            const QColor backdrop = pixels.isEmpty() ? text : QColor(pixels.at(pixels.size() / 2));
            const int shown = countPixels(image, box, [&text](QRgb p) {
                return std::abs(qRed(p) - text.red()) + std::abs(qGreen(p) - text.green())
                    + std::abs(qBlue(p) - text.blue())
                    < 60;
            });
            expect(shown >= 5 && contrast(text, backdrop) >= check[2].toDouble(),
                QStringLiteral(
                    "%1: %2 in %3 on %4, contrast %5 (at least %6 wanted), %7 text pixels")
                    .arg(fileName, item.value(QStringLiteral("name")).toString(), text.name(),
                        backdrop.name())
                    .arg(contrast(text, backdrop), 0, 'f', 2)
                    .arg(check[2])
                    .arg(shown));
        }
        expect(labels > 0, QStringLiteral("%1: labels named %2* drawn").arg(fileName, check[1]));
    }
    // --selection-stronger DUMP: the selected tooth stands out from a plain one more than the
    // tooth under the mouse does.
    for (const QStringList& check : occurrences(args, QStringLiteral("--selection-stronger"), 1)) {
        const QJsonObject dump = readDump(check[0]);
        QColor selected, hovered, plain;
        for (const QJsonValue& value : dump.value(QStringLiteral("drawn")).toArray()) {
            const QJsonObject item = value.toObject();
            if (!item.value(QStringLiteral("name"))
                     .toString()
                     .startsWith(QLatin1String("chartTooth")))
                continue;
            const QColor centre(image.pixel(pixelBox(dump, item).center()));
            if (item.value(QStringLiteral("selected")).toBool())
                selected = centre;
            else if (item.value(QStringLiteral("hovered")).toBool())
                hovered = centre;
            else
                plain = centre;
        }
        expect(selected.isValid() && hovered.isValid() && plain.isValid()
                && contrast(selected, plain) >= 1.5
                && contrast(selected, plain) > contrast(hovered, plain),
            QStringLiteral("%1: the selected tooth (%2) stands out from a plain one (%3) more than "
                           "the hovered one (%4)")
                .arg(fileName, selected.name(), plain.name(), hovered.name()));
    }
    // --no-dragger-in DUMP NAME: no line of a dragger shows through the box.
    for (const QStringList& check : occurrences(args, QStringLiteral("--no-dragger-in"), 2)) {
        const QJsonObject dump = readDump(check[0]);
        const QRect box = pixelBox(dump, drawnItem(dump, check[1]));
        const int bright = countPixels(
            image, box, [](QRgb p) { return qRed(p) < 100 && qGreen(p) > 150 && qBlue(p) > 200; });
        expect(!box.isEmpty() && bright == 0,
            QStringLiteral("%1: no dragger line through %2 (%3 pixels)")
                .arg(fileName, check[1])
                .arg(bright));
    }

    const QString minimum = option(args, QStringLiteral("--measurement-pixels"));
    if (!minimum.isEmpty())
        expect(measurementPixels >= minimum.toLongLong(),
            QStringLiteral("%1 shows the measurement (%2 line pixels, at least %3 wanted)")
                .arg(fileName)
                .arg(measurementPixels)
                .arg(minimum));
    const QString minimumRun = option(args, QStringLiteral("--measurement-run"));
    if (!minimumRun.isEmpty())
        expect(longestRun >= minimumRun.toInt(),
            QStringLiteral("%1 shows a measured line (longest yellow run %2 pixels, at least %3 "
                           "wanted)")
                .arg(fileName)
                .arg(longestRun)
                .arg(minimumRun));
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
