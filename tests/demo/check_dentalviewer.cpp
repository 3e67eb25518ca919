// Checks what the dental viewer's end-to-end script left behind.
//   check_dentalviewer dump FILE [--lengths N] [--areas N] [--length-mm MM]
//       [--notation N] [--view ID] [--reslice ID POSITION]... [--label-offset X Y]
//       [--label-size PIXELS] [--selected-tooth NAME] [--status TEXT]...
//       [--active-sub-view MULTI SUB] [--zoomed-in VIEW W H] [--fitted VIEW W H]
//       [--panned-from FILE VIEW DX DY]
//       [--notes N] [--note TEXT] [--status-bar TEXT] [--problem TEXT] [--running ID]
//       [--disabled ID TEXT] [--drawn NAME]... [--not-drawn NAME]... [--inside-viewport NAME]...
//       [--fits-screen] [--window-size W H] [--window-color COLOR] [--buttons-like FILE]
//       [--chart-layout] [--shortcut NAME KEYS]...
//   check_dentalviewer image FILE [--measurement-pixels MIN] [--measurement-run MIN]
//       [--label-fits DUMP NAME] [--contrast DUMP PREFIX MIN] [--selection-stronger DUMP]
//       [--no-dragger-in DUMP NAME]
// Every option but --running may be given more than once. Reslices, the numbering and label
// positions are read from the dumped ui state tree; what is drawn (labels, the chart's teeth) from
// the dump's window-coordinate boxes, which an image check scales by the dump's device pixel ratio.
// A NOTE's "\n" stands for a line break. Prints every failed expectation with what was
// found instead, and exits with 1 when there was one.

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <cmath>
#include <cstdio>

namespace {

int failures = 0;
QString checking; // the option under check with its values, or the file

// Counts a failure unless `condition` holds, printing what was found instead.
template <typename... Found> void expect(bool condition, const Found&... found)
{
    if (condition)
        return;
    ++failures;
    QString text;
    ((QDebug(&text) << found), ...);
    std::fprintf(stderr, "FAIL: %s: found %s\n", qPrintable(checking), qPrintable(text.trimmed()));
}

// Calls `check` with the `count` values of each occurrence of the option.
void each(const QStringList& args, const QString& option, int count,
    const std::function<void(const QStringList&)>& check)
{
    for (int i = args.indexOf(option); i >= 0 && i + count < args.size();
         i = args.indexOf(option, i + 1)) {
        checking = args.mid(i, count + 1).join(' ');
        check(args.mid(i + 1, count));
    }
}

QJsonValue readDump(const QString& fileName)
{
    QFile file(fileName);
    const bool read = file.open(QIODevice::ReadOnly);
    const QJsonObject dump = QJsonDocument::fromJson(read ? file.readAll() : "").object();
    if (dump.isEmpty()) {
        ++failures;
        std::fprintf(stderr, "FAIL: %s holds no JSON object\n", qPrintable(fileName));
    }
    return dump;
}

// The state tree's nodes of the given type, depth first.
void collectNodes(const QJsonValue& node, const QString& type, QList<QJsonValue>& found)
{
    if (node["type"].toString() == type)
        found.append(node);
    for (const QJsonValue& child : node["children"].toArray())
        collectNodes(child, type, found);
}

// The children of the state tree's node of the given view, below the root.
QJsonArray viewChildren(const QJsonValue& root, const QString& viewId)
{
    for (const QJsonValue& node : root["children"].toArray())
        if (node["type"].toString() == "ViewNode"
            && node["properties"]["ViewNode"]["viewId"].toString() == viewId)
            return node["children"].toArray();
    return {};
}

// The zoom box the view's 2-D viewer node records; invalid when there is none.
QRectF zoomBox(const QJsonValue& root, const QString& viewId)
{
    for (const QJsonValue& node : viewChildren(root, viewId)) {
        const QJsonArray box = node["properties"]["Viewer2DNode"]["zoomBox"].toArray();
        if (box.size() == 4)
            return QRectF(
                box[0].toDouble(), box[1].toDouble(), box[2].toDouble(), box[3].toDouble());
    }
    return {};
}

QRectF rectOf(const QJsonValue& box)
{
    return QRectF(box["x"].toDouble(), box["y"].toDouble(), box["width"].toDouble(),
        box["height"].toDouble());
}

// The drawn item of that name (a label, a chart tooth), undefined when there is none.
QJsonValue drawnItem(const QJsonValue& dump, const QString& name)
{
    for (const QJsonValue& item : dump["drawn"].toArray())
        if (item["name"].toString() == name)
            return item;
    return QJsonValue::Undefined;
}

// A box of the dump in the pixels of a screenshot of the window.
QRect pixelBox(const QJsonValue& dump, const QRectF& box)
{
    const double ratio = dump["devicePixelRatio"].toDouble(1.0);
    return QRectF(box.topLeft() * ratio, box.size() * ratio).toAlignedRect();
}

double luminance(const QColor& color)
{
    const auto channel
        = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF())
        + 0.0722 * channel(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    return (std::max(luminance(a), luminance(b)) + 0.05)
        / (std::min(luminance(a), luminance(b)) + 0.05);
}

// Label text and the measured line are the only saturated yellow in the viewer.
bool isLabelText(QRgb pixel)
{
    return qRed(pixel) > 200 && qGreen(pixel) > 200 && qBlue(pixel) < 90;
}

// The pixels of the image inside `area` (clipped to the image) for which `test` holds.
QList<QRgb> pixels(
    const QImage& image, const QRect& area,
    const std::function<bool(QRgb)>& test = [](QRgb) { return true; })
{
    QList<QRgb> found;
    const QRect clipped = area.intersected(image.rect());
    for (int y = clipped.top(); y <= clipped.bottom(); ++y)
        for (int x = clipped.left(); x <= clipped.right(); ++x)
            if (test(image.pixel(x, y)))
                found.append(image.pixel(x, y));
    return found;
}

void checkDump(const QString& fileName, const QStringList& args)
{
    const QJsonValue dump = readDump(fileName);
    const QJsonValue root = dump["state"]["root"];
    const QJsonArray measurements = dump["document"]["measurements"].toArray();
    QHash<QString, QStringList> texts; // the measurements' texts by kind
    checking = fileName;
    for (const QJsonValue& measurement : measurements) {
        const QString text = measurement["text"].toString();
        texts[measurement["kind"].toString()].append(text);
        if (measurement["kind"].toString() == "area")
            expect(text.endsWith(" mm²") && text.section(' ', 0, 0).toDouble() > 0
                    && measurement["points"].toArray().size() >= 3,
                "an area", text, "of corners", measurement["points"]);
    }

    // --lengths, --areas, --notes N: how many the document holds of each kind.
    for (const auto& [option, kind] : {std::pair {"--lengths", "length"},
             std::pair {"--areas", "area"}, std::pair {"--notes", "text"}})
        each(args, option, 1, [&, kind = kind](const QStringList& v) {
            expect(texts.value(kind).size() == v[0].toInt(), texts.value(kind));
        });
    each(args, "--length-mm", 1, [&](const QStringList& v) {
        bool found = false;
        for (const QString& text : texts.value("length"))
            found = found
                || (text.endsWith(" mm")
                    && std::abs(text.section(' ', 0, 0).toDouble() - v[0].toDouble()) < 0.15);
        expect(found, texts.value("length"));
    });
    // --note TEXT: a note of the document reads that, word for word.
    each(args, "--note", 1, [&](const QStringList& v) {
        expect(texts.value("text").contains(QString(v[0]).replace("\\n", "\n")), texts["text"]);
    });

    // What the window shows: a text of the dump, whole or (the hint in the status bar, a problem
    // shown above the views, what it reports about the saved state it read) in part.
    for (const auto& [option, field, whole] : {std::tuple {"--view", "currentViewOrSubView", true},
             std::tuple {"--notation", "notation", true},
             std::tuple {"--selected-tooth", "selectedTooth", true},
             std::tuple {"--window-color", "windowColor", true},
             std::tuple {"--status-bar", "statusBar", false},
             std::tuple {"--problem", "problem", false},
             std::tuple {"--status", "statusMessage", false}})
        each(args, option, 1, [&, field = field, whole = whole](const QStringList& v) {
            const QString shown = dump[field].toString();
            expect(whole ? shown == v[0] : shown.contains(v[0]), shown);
        });
    // The tool left running, none when --running is not given.
    const int running = args.indexOf("--running");
    checking = running >= 0 ? args.mid(running, 2).join(' ') : QStringLiteral("no tool running");
    expect(dump["runningAction"].toString() == (running >= 0 ? args.value(running + 1) : ""),
        dump["runningAction"]);

    // --disabled ID TEXT: the tool is disabled and its tooltip says why.
    each(args, "--disabled", 2, [&](const QStringList& v) {
        const QJsonValue action = dump["actions"][v[0]];
        expect(action.isObject() && !action["enabled"].toBool()
                && action["tooltip"].toString().contains(v[1]),
            action);
    });
    // Drawn items: present or absent, and inside the viewer's viewport.
    for (const bool drawn : {true, false})
        each(args, drawn ? "--drawn" : "--not-drawn", 1, [&, drawn](const QStringList& v) {
            expect(drawnItem(dump, v[0]).isUndefined() != drawn, drawnItem(dump, v[0]));
        });
    each(args, "--inside-viewport", 1, [&](const QStringList& v) {
        const QRectF box = rectOf(drawnItem(dump, v[0])["box"]);
        const QRectF viewport = rectOf(dump["viewport"]);
        expect(!box.isEmpty() && viewport.adjusted(-0.5, -0.5, 0.5, 0.5).contains(box), box,
            "in the viewport", viewport);
    });

    // The window: on the screen, and of a size.
    each(args, "--fits-screen", 0, [&](const QStringList&) {
        const QRectF window = rectOf(dump["window"]);
        const QRectF screen = rectOf(dump["screen"]);
        expect(!window.isEmpty() && screen.contains(window), window, "on the screen", screen);
    });
    each(args, "--window-size", 2, [&](const QStringList& v) {
        const QJsonArray size = dump["windowSize"].toArray();
        expect(size[0].toInt() == v[0].toInt() && size[1].toInt() == v[1].toInt(), size);
    });

    // --buttons-like FILE: the chart's buttons stand where they stood in the other dump.
    each(args, "--buttons-like", 1, [&](const QStringList& v) {
        const QJsonValue before = readDump(v[0])["chartButtons"];
        for (const char* button : {"previousTooth", "nextTooth"}) {
            const QJsonValue was = before[button], is = dump["chartButtons"][button];
            expect(was.isDouble() && is.isDouble() && std::abs(was.toDouble() - is.toDouble()) < 1,
                button, "at", is, "before at", was);
        }
    });
    // --chart-layout: every tooth number centred on its tooth, above the upper teeth and below
    // the lower ones.
    each(args, "--chart-layout", 0, [&](const QStringList&) {
        for (int t = 1; t <= 32; ++t) {
            const QRectF tooth = rectOf(drawnItem(dump, "chartTooth" + QString::number(t))["box"]);
            const QRectF label = rectOf(drawnItem(dump, "chartLabel" + QString::number(t))["box"]);
            expect(!tooth.isEmpty() && !label.isEmpty()
                    && std::abs(label.center().x() - tooth.center().x()) <= 2.0
                    && (t <= 16 ? label.bottom() <= tooth.top() : label.top() >= tooth.bottom()),
                "the number of tooth", t, "at", label, "the tooth at", tooth);
        }
    });
    // --shortcut NAME KEYS: the open shortcut list has that line.
    each(args, "--shortcut", 2, [&](const QStringList& v) {
        expect(dump["shortcuts"][v[0]].toString() == v[1], dump["shortcuts"][v[0]]);
    });

    // --zoomed-in VIEW W H: the view shows less than the whole W x H image in both directions,
    // which a fitted view never does. --fitted VIEW W H: the whole image is in view, and it fills
    // one direction.
    for (const bool fitted : {false, true})
        each(args, fitted ? "--fitted" : "--zoomed-in", 3, [&, fitted](const QStringList& v) {
            const QRectF box = zoomBox(root, v[0]);
            const QSizeF image(v[1].toDouble(), v[2].toDouble());
            const bool fits = box.adjusted(-1, -1, 1, 1).contains(QRectF(QPointF(), image))
                && (box.width() < image.width() * 1.05 || box.height() < image.height() * 1.05);
            const bool zoomedIn
                = box.width() < image.width() * 0.95 && box.height() < image.height() * 0.95;
            expect(box.isValid() && (fitted ? fits : zoomedIn), box);
        });
    // --panned-from FILE VIEW DX DY: the zoom box of another dump, of the same size, moved by DX DY
    // scene units, to 3 % of its size.
    each(args, "--panned-from", 4, [&](const QStringList& v) {
        const QRectF before = zoomBox(readDump(v[0])["state"]["root"], v[1]);
        const QRectF box = zoomBox(root, v[1]);
        const QPointF shift(v[2].toDouble(), v[3].toDouble());
        const double tolerance = before.width() * 0.03;
        expect(before.isValid() && box.isValid()
                && QLineF(box.center(), before.center() + shift).length() < tolerance
                && std::abs(box.width() - before.width()) < tolerance,
            box, "before", before);
    });

    // --active-sub-view MULTI SUB: the multi view's node names its chosen sub view.
    each(args, "--active-sub-view", 2, [&](const QStringList& v) {
        QStringList found;
        for (const QJsonValue& node : viewChildren(root, v[0]))
            if (node["type"].toString() == "ViewNode")
                found.append(node["properties"]["ViewNode"]["viewId"].toString());
        expect(found == QStringList {v[1]}, found);
    });
    // --reslice ID POSITION: the cross-section's position along the arch (0..1), to two
    // hundredths, as its reslice viewer node records it.
    each(args, "--reslice", 2, [&](const QStringList& v) {
        double position = std::nan("");
        for (const QJsonValue& node : viewChildren(root, v[0])) {
            const QJsonValue own = node["properties"]["CrossSectionalResliceViewerNode"];
            const double slices = own["numberOfSlices"].toDouble();
            if (node["type"].toString() == "CrossSectionalResliceViewerNode" && slices >= 2)
                position = own["sliderIndex"].toDouble() / (slices - 1);
        }
        expect(std::abs(position - v[1].toDouble()) < 0.02, position);
    });
    // --notation N: also the tooth chart's numbering node in the state tree.
    each(args, "--notation", 1, [&](const QStringList& v) {
        QList<QJsonValue> numberings;
        collectNodes(QJsonObject {{"children", viewChildren(root, "Tooth chart")}},
            "ToothNumberingNode", numberings);
        expect(numberings.size() == 1
                && numberings[0]["properties"]["ToothNumberingNode"]["notation"] == v[0],
            numberings);
    });
    // --label-offset X Y: some measurement's label sits there, relative to its last point.
    each(args, "--label-offset", 2, [&](const QStringList& v) {
        QList<QJsonValue> nodes;
        collectNodes(root, "Measurement2DNode", nodes);
        QList<QPointF> offsets;
        bool found = false;
        for (const QJsonValue& node : nodes) {
            const QJsonArray xy
                = node["properties"]["Measurement2DNode"]["labelRelativePositions"][0].toArray();
            offsets.append(QPointF(xy[0].toDouble(), xy[1].toDouble()));
            // The script's positions reach the viewer as whole viewport pixels.
            found = found
                || QLineF(offsets.last(), QPointF(v[0].toDouble(), v[1].toDouble())).length() < 2;
        }
        expect(found, offsets);
    });
    // --label-size PIXELS: every measurement label is drawn at that pixel size.
    each(args, "--label-size", 1, [&](const QStringList& v) {
        const QJsonArray labels = dump["labels"].toArray();
        expect(!labels.isEmpty(), "no measurement label drawn");
        for (const QJsonValue& label : labels)
            expect(label["pixelSize"].toInt() == v[0].toInt(), label);
    });

    // The state tree names every view and refers to every measurement of the document.
    checking = fileName + " state tree";
    const QString tree = QJsonDocument(dump["state"].toObject()).toJson();
    for (const char* id : {"Panoramic", "Cross-section A", "Cross-section B", "Tooth chart"})
        expect(tree.contains(QStringLiteral("\"%1\"").arg(id)), "no node for", id);
    for (const QJsonValue& measurement : measurements)
        expect(tree.contains("\"" + measurement["id"].toString() + "\""), "no", measurement["id"]);
}

void checkImage(const QString& fileName, const QStringList& args)
{
    const QImage image = QImage(fileName).convertToFormat(QImage::Format_RGB32);
    checking = fileName;
    // Not blank: many colours, and greys that vary.
    const QList<QRgb> all = pixels(image, image.rect());
    double mean = 0, variance = 0;
    for (const QRgb pixel : all)
        mean += double(qGray(pixel)) / all.size();
    for (const QRgb pixel : all)
        variance += std::pow(qGray(pixel) - mean, 2) / all.size();
    const double deviation = std::sqrt(variance);
    const qsizetype colours = QSet<QRgb>(all.begin(), all.end()).size();
    expect(colours > 64 && deviation > 8.0, colours, "colours, a deviation of", deviation);

    // --label-fits DUMP NAME: the label's text lies inside its box: text pixels in it, none in
    // the strips just right of it and above it, where a text that outgrew its box would run.
    each(args, "--label-fits", 2, [&](const QStringList& v) {
        const QJsonValue dump = readDump(v[0]);
        const QRect box = pixelBox(dump, rectOf(drawnItem(dump, v[1])["box"]));
        const auto text
            = [&](const QRect& area) { return pixels(image, area, isLabelText).size(); };
        const auto inside = text(box);
        const auto right = text(QRect(box.right() + 1, box.top() - 4, 40, box.height() + 4));
        const auto above = text(QRect(box.left(), box.top() - 30, box.width() + 40, 30));
        expect(!box.isEmpty() && inside > 20 && right == 0 && above == 0, inside,
            "text pixels in the box,", right, "right of it,", above, "above it");
    });
    // --contrast DUMP PREFIX MIN: every drawn label whose name starts with PREFIX shows its
    // text colour, at a contrast of at least MIN against the median colour of its box.
    each(args, "--contrast", 3, [&](const QStringList& v) {
        const QJsonValue dump = readDump(v[0]);
        int labels = 0;
        for (const QJsonValue& item : dump["drawn"].toArray()) {
            if (!item["name"].toString().startsWith(v[1]))
                continue;
            ++labels;
            const QColor text(item["color"].toString());
            const QRect box = pixelBox(dump, rectOf(item["box"]));
            QList<QRgb> inBox = pixels(image, box);
            std::sort(
                inBox.begin(), inBox.end(), [](QRgb a, QRgb b) { return qGray(a) < qGray(b); });
            const QColor backdrop = inBox.isEmpty() ? text : QColor(inBox.at(inBox.size() / 2));
            const auto shown = pixels(image, box, [&text](QRgb p) {
                return std::abs(qRed(p) - text.red()) + std::abs(qGreen(p) - text.green())
                    + std::abs(qBlue(p) - text.blue())
                    < 60;
            }).size();
            expect(shown >= 5 && contrast(text, backdrop) >= v[2].toDouble(), item["name"], text,
                "on", backdrop, "contrast", contrast(text, backdrop), shown, "text pixels");
        }
        expect(labels > 0, "no such label drawn");
    });
    // --selection-stronger DUMP: the selected tooth stands out from a plain one more than the
    // tooth under the mouse does.
    each(args, "--selection-stronger", 1, [&](const QStringList& v) {
        const QJsonValue dump = readDump(v[0]);
        QColor centres[3]; // selected, hovered, plain
        for (const QJsonValue& item : dump["drawn"].toArray()) {
            const int kind = item["selected"].toBool() ? 0 : item["hovered"].toBool() ? 1 : 2;
            if (item["name"].toString().startsWith("chartTooth"))
                centres[kind] = image.pixel(pixelBox(dump, rectOf(item["box"])).center());
        }
        const auto& [selected, hovered, plain] = centres;
        expect(selected.isValid() && hovered.isValid() && plain.isValid()
                && contrast(selected, plain) >= 1.5
                && contrast(selected, plain) > contrast(hovered, plain),
            "selected", selected, "hovered", hovered, "plain", plain);
    });
    // --no-dragger-in DUMP NAME: no line of a dragger shows through the box.
    each(args, "--no-dragger-in", 2, [&](const QStringList& v) {
        const QJsonValue dump = readDump(v[0]);
        const QRect box = pixelBox(dump, rectOf(drawnItem(dump, v[1])["box"]));
        const auto bright = pixels(image, box, [](QRgb p) {
            return qRed(p) < 100 && qGreen(p) > 150 && qBlue(p) > 200;
        }).size();
        expect(!box.isEmpty() && bright == 0, bright, "dragger pixels");
    });

    // --measurement-pixels MIN: the measurement's line and label show.
    each(args, "--measurement-pixels", 1, [&](const QStringList& v) {
        const auto count = pixels(image, image.rect(), isLabelText).size();
        expect(count >= v[0].toInt(), count, "pixels");
    });
    // --measurement-run MIN: columns where a band of three rows holds a yellowish pixel, band by
    // band: a measured line is one long unbroken run, the glyphs of a label are short ones with
    // gaps between them. Yellowish also takes the line's antialiased edge, blended with the grey.
    each(args, "--measurement-run", 1, [&](const QStringList& v) {
        const auto yellowish = [&image](int x, int y) {
            const QRgb pixel = image.pixel(x, y);
            const int low = std::min(qRed(pixel), qGreen(pixel));
            return low > 120 && qBlue(pixel) < low / 2
                && std::abs(qRed(pixel) - qGreen(pixel)) < 40;
        };
        int longest = 0;
        for (int y = 0; y + 2 < image.height(); ++y)
            for (int x = 0, run = 0; x < image.width(); ++x) {
                run = yellowish(x, y) || yellowish(x, y + 1) || yellowish(x, y + 2) ? run + 1 : 0;
                longest = std::max(longest, run);
            }
        expect(longest >= v[0].toInt(), "a longest run of", longest, "pixels");
    });
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 3 || (args[1] != "dump" && args[1] != "image")) {
        std::fprintf(stderr, "usage: %s dump|image FILE [options]\n", argv[0]);
        return 2;
    }
    (args[1] == "dump" ? checkDump : checkImage)(args[2], args);
    return failures == 0 ? 0 : 1;
}
