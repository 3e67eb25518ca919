// Malformed input at every boundary where the library takes data from outside: style files and
// palettes, date texts, tooth names, stored state trees, images of no size or unusual formats,
// and null pointers that are documented as ignored. Each row states the warnings the input must
// produce (exact texts) and checks that the result is the neutral one: no crash, no exception,
// no partial result.

#include <guicore/graphics/scene/WheelEventHandler.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>
#include <guicore/ui/BookmarkNode.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/Measurement2DNode.h>
#include <guicore/ui/NodeFactory.h>
#include <guicore/ui/NodeSerializer.h>
#include <guicore/ui/PatientNode.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/ui/Viewer3DNode.h>
#include <guicore/utility/dates/DateBuilder.h>
#include <guicore/utility/dates/DateMatcher.h>
#include <guicore/utility/dental/ToothNameGenerator.h>
#include <guicore/utility/image/ImageComparator.h>
#include <guicore/utility/image/ImageMerger.h>
#include <guicore/utility/image/QImageHelper.h>
#include <guicore/utility/image/QrcImageProviderImpl.h>
#include <guicore/utility/shortcuts/ShortcutManager.h>

#include <stylereader/StyleReader.h>

#include <QImage>
#include <QPixmap>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

#include <functional>

/// Runs the input and tells whether the result is the neutral one.
using Check = std::function<bool()>;
Q_DECLARE_METATYPE(Check)

class tst_BadInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void styleFiles_data();
    void styleFiles();
    void dates_data();
    void dates();
    void toothNames_data();
    void toothNames();
    void stateTrees_data();
    void stateTrees();
    void images_data();
    void images();
    void nullPointers_data();
    void nullPointers();

private:
    void addColumns();
    void runRow();
    /// A file in the test's temporary folder with that content; returns its path.
    QString writeFile(const QString& name, const QByteArray& content);
    /// Creates the style singleton from files with these contents, each file kind optional.
    void createStyle(const QString& colors, const QString& sizes, const QString& fonts,
        const QString& paletteName = QString());

    QTemporaryDir directory;
};

namespace {

QByteArray document(const QByteArray& root)
{
    return R"({"format": "GuiCoreStateTree", "formatVersion": 1, "root": )" + root + "}";
}

QByteArray viewNode(const QByteArray& extra)
{
    return R"({"type": "ViewNode", "versions": {"Node": "1.0", "ViewNode": "1.0"})" + extra + "}";
}

QByteArray nested(int depth)
{
    QByteArray json = R"({"type": "ViewNode", "versions": {"Node": "1.0"}})";
    for (int i = 1; i < depth; ++i)
        json = R"({"type": "ViewNode", "versions": {"Node": "1.0"}, "children": [)" + json + "]}";
    return document(json);
}

QImage filled(int width, int height, QImage::Format format, Qt::GlobalColor color)
{
    QImage image(width, height, format);
    if (image.depth() == 1) {
        // One-bit images fill by index; give them a table in which index 0 is the colour.
        image.setColorTable({QColor(color).rgba(), qRgb(128, 128, 128)});
        image.fill(0);
    } else {
        image.fill(color);
    }
    return image;
}

} // namespace

void tst_BadInput::initTestCase()
{
    QVERIFY(directory.isValid());
}

void tst_BadInput::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_BadInput::cleanup()
{
    StyleManager::deleteManager();
}

void tst_BadInput::addColumns()
{
    QTest::addColumn<QStringList>("warnings");
    QTest::addColumn<Check>("check");
}

void tst_BadInput::runRow()
{
    QFETCH(QStringList, warnings);
    QFETCH(Check, check);
    for (const QString& warning : warnings)
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    QVERIFY(check());
}

QString tst_BadInput::writeFile(const QString& name, const QByteArray& content)
{
    const QString path = directory.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return QString();
    file.write(content);
    return path;
}

void tst_BadInput::createStyle(
    const QString& colors, const QString& sizes, const QString& fonts, const QString& paletteName)
{
    const auto list = [](const QString& path) {
        return path.isEmpty() ? QList<QString>() : QList<QString> {path};
    };
    StyleManager::createManager(StyleManagerDataProvider(
        StyleManagerDataProvider::Data(list(colors), list(sizes), list(fonts), {}, paletteName)));
}

void tst_BadInput::styleFiles_data()
{
    addColumns();
    const QString missing = directory.filePath("missing.txt");
    QTest::newRow("missing colour file")
        << QStringList {"StyleReader : cannot open file " + missing,
               R"(StyleManager : color not found for id "@A")"}
        << Check([=] {
               createStyle(missing, {}, {});
               return StyleManager::manager().getColor("@A") == QColor(Qt::magenta);
           });

    const QString malformed = writeFile("malformed.txt", "@A: 1;\nnot an entry\n@B: 2;\n");
    QTest::newRow("malformed line between entries")
        << QStringList {"StyleReader : malformed line 2 in " + malformed + ": not an entry"}
        << Check([=] {
               createStyle({}, malformed, {});
               const StyleManager& style = StyleManager::manager();
               return style.getSize("@A") == 1.0 && style.getSize("@B") == 2.0;
           });

    const QString cyclic = writeFile("cyclic.txt", "@A: @B;\n@B: @A;\n@C: 3;\n");
    QTest::newRow("cyclic reference")
        << QStringList {"StyleReader : unresolved reference @B for @A",
               "StyleReader : unresolved reference @A for @B",
               R"(StyleManager : could not properly convert size value "@B" for id "@A")"}
        << Check([=] {
               createStyle({}, cyclic, {});
               const StyleManager& style = StyleManager::manager();
               return style.getSize("@A") == 0.0 && style.getSize("@C") == 3.0;
           });

    const QString unknownReference = writeFile("unknownref.txt", "@A: @NOWHERE;\n");
    QTest::newRow("reference to an unknown id")
        << QStringList {"StyleReader : unresolved reference @NOWHERE for @A",
               R"(StyleManager : could not properly convert size value "@NOWHERE" for id "@A")"}
        << Check([=] {
               createStyle({}, unknownReference, {});
               return StyleManager::manager().getSize("@A") == 0.0;
           });

    const QString openComment = writeFile("comment.txt", "@A: 1;\n/* never closed\n@B: 2;\n");
    QTest::newRow("unterminated block comment")
        << QStringList {R"(StyleManager : size not found for id "@B")"} << Check([=] {
               createStyle({}, openComment, {});
               const StyleManager& style = StyleManager::manager();
               return style.getSize("@A") == 1.0 && style.getSize("@B") == 0.0;
           });

    const QString emptyValue = writeFile("empty.txt", "@A:\n@B: ;\n");
    QTest::newRow("entries without a value")
        << QStringList {R"(StyleManager : size not found for id "@A")",
               R"(StyleManager : size not found for id "@B")"}
        << Check([=] {
               createStyle({}, emptyValue, {});
               const StyleManager& style = StyleManager::manager();
               return style.getSize("@A") == 0.0 && style.getSize("@B") == 0.0;
           });

    const QString binary = writeFile("binary.txt", "\xff\xfe@A: 1\n\x89PNG\r\n");
    QTest::newRow("binary file")
        << QStringList {"StyleReader : malformed line 1 in " + binary + ": \uFFFD\uFFFD@A: 1",
               "StyleReader : malformed line 2 in " + binary + ": \uFFFDPNG"}
        << Check([=] { return StyleReader().convertFilesToStyleMap({binary}).isEmpty(); });

    const QString badFonts = writeFile(
        "fonts.txt", "@F: 14 DejaVu Sans;\n@F-line-height: tall;\n@B: TRUE;\n@W: 400px;\n");
    QTest::newRow("unusable font values")
        << QStringList {R"(StyleManager : Invalid font format for id "@F")",
               R"(StyleManager : Invalid line-height format for id "@F")",
               R"(StyleManager : could not properly convert property value "TRUE" for id "@B")",
               R"(StyleManager : could not properly convert property value "400px" for id "@W")"}
        << Check([=] {
               createStyle({}, {}, badFonts);
               const StyleManager& style = StyleManager::manager();
               return style.getCompleteFont("@F") == QFont() && style.getLineHeight("@F") == 0.1
                   && !style.getFontBoolValue("@B") && style.getFontWeight("@W") == 0;
           });

    QTest::newRow("unknown palette")
        << QStringList {"StyleReader : unknown palette Missing in :/Resources/palette.txt",
               R"(StyleManager : color not found for id "@BACKGROUND_COLOR")"}
        << Check([=] {
               createStyle({}, {}, {}, "Missing");
               return StyleManager::manager().getColor("@BACKGROUND_COLOR") == QColor(Qt::magenta);
           });

    const QString palette
        = writeFile("palette.txt", "[dark]\n@A: #000000;\n[broken\n@B: #ffffff;\n");
    QTest::newRow("palette with a broken section header")
        << QStringList {"StyleReader : malformed line 3 in " + palette + ": [broken"} << Check([=] {
               const QHash<QString, QString> map
                   = StyleReader().convertFilesToStyleMap("dark", palette);
               return map.value("@A") == "#000000" && map.value("@B") == "#ffffff";
           });

    QTest::newRow("palette without a name")
        << QStringList {"StyleReader : unknown palette  in " + palette,
               "StyleReader : malformed line 3 in " + palette + ": [broken"}
        << Check(
               [=] { return StyleReader().convertFilesToStyleMap(QString(), palette).isEmpty(); });
}

void tst_BadInput::styleFiles()
{
    runRow();
}

void tst_BadInput::dates_data()
{
    addColumns();
    const QString noFormat = "DateMatcher: Could not determine date format! Date format not set.";
    const QString badPattern = "DateMatcher: Given date pattern is not valid! Pattern not set.";
    const QString badDate = "DateMatcher: Given date is not in correct date format!";
    const QString misplaced = "DateMatcher: Date is not in correct format.";

    const auto matcher = [](const QString& format, const QString& pattern) {
        DateMatcher result;
        result.setDateFormat(format);
        result.setPattern(pattern);
        return result;
    };
    QTest::newRow("format without separator keeps the old one")
        << QStringList {noFormat} << Check([=] {
               DateMatcher dates = matcher("yyyy-MM-dd", "YYYY-03-DD");
               dates.setDateFormat("yyyyMMdd");
               return dates.match("2024-03-05") && !dates.match("2024-04-05");
           });
    QTest::newRow("empty format") << QStringList {noFormat} << Check([=] {
        DateMatcher dates;
        dates.setDateFormat(QString());
        return dates.match("05-03-2024");
    });
    QTest::newRow("pattern with a foreign letter keeps the old one")
        << QStringList {badPattern} << Check([=] {
               DateMatcher dates = matcher("dd.MM.yyyy", "DD.03.YYYY");
               dates.setPattern("DD.0x.YYYY");
               return dates.match("05.03.2024") && !dates.match("05.04.2024");
           });
    QTest::newRow("pattern too long") << QStringList {badPattern} << Check([=] {
        DateMatcher dates = matcher("dd.MM.yyyy", "DD.03.YYYY");
        dates.setPattern("DD.03.YYYYY");
        return dates.match("05.03.2024");
    });
    QTest::newRow("date of eleven characters")
        << QStringList {badDate}
        << Check([=] { return !matcher("dd-MM-yyyy", "DD-MM-YYYY").match("05-03-20245"); });
    QTest::newRow("empty date") << QStringList {badDate}
                                << Check([=] { return !DateMatcher().match(QString()); });
    QTest::newRow("other separator") << QStringList {
        badDate} << Check([=] { return !matcher("dd-MM-yyyy", "DD-MM-YYYY").match("05/03/2024"); });
    QTest::newRow("three separators") << QStringList {
        badDate} << Check([=] { return !matcher("dd-MM-yyyy", "DD-MM-YYYY").match("05-03-20-4"); });
    QTest::newRow("non-ASCII digits") << QStringList {
        badDate} << Check([=] { return !DateMatcher().match(QString::fromUtf8("٠٥-٠٣-٢٠٢٤")); });
    QTest::newRow("separators at no expected place")
        << QStringList {misplaced}
        << Check([=] { return !matcher("yyyy-MM-dd", "YYYY-MM-DD").match("2-0240305-"); });
    QTest::newRow("building from an invalid date") << QStringList {} << Check([=] {
        return DateBuilder::getNumericDate(QDate(), DateBuilder::DayMonthYear, "-").isEmpty()
            && DateBuilder::getFullDate(QDate(2024, 2, 30), DateBuilder::YearMonthDay, ".")
                   .isEmpty()
            && DateBuilder::getMonthAbbreviated(QDate()).isEmpty();
    });
    QTest::newRow("building with an unknown field order") << QStringList {} << Check([=] {
        return DateBuilder::getNumericDate(QDate(2024, 3, 5), DateBuilder::DateFormat(7), "-")
            .isEmpty();
    });
}

void tst_BadInput::dates()
{
    runRow();
}

void tst_BadInput::toothNames_data()
{
    addColumns();
    using Tooth = ToothChart::Tooth;
    const auto unknown = [](const QString& name, const QString& numbering) {
        return ToothNameGenerator::getToothIdByName(name, numbering) == ToothChart::UnknownTooth
            && !ToothNameGenerator::getToothTypeAndDentitionByName(name, numbering).has_value();
    };
    QTest::newRow("FDI number of no tooth")
        << QStringList {} << Check([=] { return unknown("99", "FDI") && unknown("10", "FDI"); });
    QTest::newRow("Universal number out of range")
        << QStringList {} << Check([=] { return unknown("33", "UNIV") && unknown("0", "UNIV"); });
    QTest::newRow("empty and blank names")
        << QStringList {} << Check([=] { return unknown("", "FDI") && unknown("  ", "UNIV"); });
    QTest::newRow("words and signs") << QStringList {} << Check([=] {
        return unknown("eleven", "FDI") && unknown("-8", "UNIV") && unknown("1.5", "FDI");
    });
    QTest::newRow("neighbours of no tooth") << QStringList {} << Check([=] {
        return ToothNameGenerator::getNextTooth("xyz").isEmpty()
            && ToothNameGenerator::getPreviousTooth(QString()).isEmpty();
    });
    QTest::newRow("names of teeth out of range") << QStringList {} << Check([=] {
        return ToothNameGenerator::getName(Tooth(77), QString("FDI"), false) == "?"
            && ToothNameGenerator::getName(Tooth(-5), QString("UNIV"), true) == "?"
            && ToothNameGenerator::getType(Tooth(40)).isEmpty();
    });
    QTest::newRow("ranges with an invalid end") << QStringList {} << Check([=] {
        return ToothNameGenerator::displayName({Tooth(0), Tooth(5)}, "FDI", false, false, true)
                   .isEmpty()
            && ToothNameGenerator::displayName({Tooth(5), Tooth(99)}, false, true, true).isEmpty()
            && ToothNameGenerator::displayName(QList<Tooth> {}, true).isEmpty()
            && ToothNameGenerator::getName(QList<ToothNameGenerator::ToothRange> {}, false)
                   .isEmpty();
    });
}

void tst_BadInput::toothNames()
{
    runRow();
}

void tst_BadInput::stateTrees_data()
{
    addColumns();
    const QString malformed = "NodeSerializer : malformed state tree, nothing was read: ";
    const auto unread = [](const QByteArray& json) {
        return Check([=] { return ui::NodeSerializer::read(json) == nullptr; });
    };
    QTest::newRow("not JSON") << QStringList {
        "NodeSerializer : the state tree is not valid JSON: unterminated object "
        "at offset 1."} << unread("{");
    QTest::newRow("empty text") << QStringList {
        "NodeSerializer : the state tree is not valid JSON: illegal value at "
        "offset 0."} << unread(QByteArray());
    QTest::newRow("an array")
        << QStringList {"NodeSerializer : the document does not hold a state tree."}
        << unread("[1, 2]");
    QTest::newRow("another format")
        << QStringList {"NodeSerializer : the document does not hold a state tree."}
        << unread(R"({"format": "Other", "root": {}})");
    QTest::newRow("node without type") << QStringList {malformed + "a node has no type id."}
                                       << unread(document(R"({"versions": {"Node": "1.0"}})"));
    QTest::newRow("malformed version")
        << QStringList {malformed + "the versions of \"ViewNode\" are missing or malformed."}
        << unread(document(R"({"type": "ViewNode", "versions": {"Node": "one"}})"));
    QTest::newRow("property of the wrong type")
        << QStringList {malformed
               + "property \"viewId\" of \"ViewNode\" in \"ViewNode\" has the wrong type."}
        << unread(document(viewNode(R"(, "properties": {"ViewNode": {"viewId": 5}})")));
    QTest::newRow("children not an array")
        << QStringList {malformed + "the children of \"ViewNode\" are not an array."}
        << unread(document(viewNode(R"(, "children": {"a": 1})")));
    QTest::newRow("one bad child spoils the tree")
        << QStringList {malformed + "a node is not a JSON object."}
        << unread(document(viewNode(R"(, "children": [)" + viewNode("") + R"(, 7])")));
    // Infinity has no JSON form: a tree that took it in could never be written back.
    QTest::newRow("number beyond the range of a float")
        << QStringList {malformed
               + "property \"nearDistance\" of \"Viewer3DNode\" in \"Viewer3DNode\" has the "
                 "wrong type."}
        << unread(document(R"({"type": "Viewer3DNode", "versions": {"Node": "1.0"}, )"
                           R"("properties": {"Viewer3DNode": {"nearDistance": -1e300}}})"));
    QTest::newRow("vector beyond the range of a float")
        << QStringList {malformed
               + "property \"cameraPosition\" of \"Viewer3DNode\" in \"Viewer3DNode\" has the "
                 "wrong type."}
        << unread(document(R"({"type": "Viewer3DNode", "versions": {"Node": "1.0"}, )"
                           R"("properties": {"Viewer3DNode": {"cameraPosition": [0, 4e38, 0]}}})"));
    QTest::newRow("largest float is kept") << QStringList {} << Check([] {
        const std::unique_ptr<ui::Node> tree = ui::NodeSerializer::read(
            document(R"({"type": "Viewer3DNode", "versions": {"Node": "1.0"}, )"
                     R"("properties": {"Viewer3DNode": {"farDistance": 3.4028234663852886e38}}})"));
        const auto* viewer = dynamic_cast<const ui::Viewer3DNode*>(tree.get());
        return viewer && viewer->getFarDistance() == std::numeric_limits<float>::max()
            && ui::NodeSerializer::read(ui::NodeSerializer::write(*viewer)) != nullptr;
    });
    QTest::newRow("nested too deep")
        << QStringList {malformed + "the tree is nested deeper than 400 levels."}
        << unread(nested(401));
    QTest::newRow("as deep as allowed") << QStringList {} << Check([] {
        const std::unique_ptr<ui::Node> tree = ui::NodeSerializer::read(nested(400));
        return tree && !tree->isAlteredRecursively();
    });
    QTest::newRow("writing a tree too deep") << QStringList {
        "NodeSerializer : the state tree is nested deeper than 400 levels and "
        "was not written."} << Check([] {
        auto root = std::make_unique<ui::ViewNode>();
        ui::Node* last = root.get();
        for (int i = 1; i < 401; ++i) {
            auto child = std::make_unique<ui::ViewNode>();
            ui::Node* next = child.get();
            last->addNode(std::move(child));
            last = next;
        }
        return ui::NodeSerializer::write(*root).isEmpty();
    });
    const QString missing = directory.filePath("missing.json");
    QTest::newRow("missing file") << QStringList {"NodeSerializer : cannot read " + missing
        + "."} << Check([=] { return ui::NodeSerializer::readFile(missing) == nullptr; });
    QTest::newRow("unknown kind is kept") << QStringList {} << Check([] {
        const QByteArray json = document(
            R"({"type": "FutureNode", "versions": {"Node": "1.0", "FutureNode": "3.1"}, )"
            R"("properties": {"FutureNode": {"x": 1}}, "children": [)"
            + viewNode("") + "]}");
        const std::unique_ptr<ui::Node> tree = ui::NodeSerializer::read(json);
        return tree && tree->getNodes().size() == 1
            && ui::NodeSerializer::write(*tree).contains("\"FutureNode\": \"3.1\"");
    });
    QTest::newRow("data object without UUID is not replicated") << QStringList {
        "Empty uuid in DataObjectNode. This should only happen when importing "
        "older patients."} << Check([] {
        ui::PatientNode patient;
        patient.addNode(std::make_unique<ui::DataObjectNode>());
        const std::unique_ptr<ui::Node> copy = ui::NodeFactory::replicateRecursively(&patient, {});
        return copy && copy->getNodes().empty();
    });
    QTest::newRow("label index out of range")
        << QStringList {"Measurement2DNode : no label at index 3."} << Check([] {
               ui::Measurement2DNode node("uuid");
               node.setLabelRelativePositions({QPointF(1, 2)});
               node.clearAlteredRecursively();
               node.setLabelRelativePosition(3, QPointF(5, 5));
               return !node.isAltered() && node.getLabelRelativePositions().size() == 1;
           });
}

void tst_BadInput::stateTrees()
{
    runRow();
}

void tst_BadInput::images_data()
{
    addColumns();
    const QString invalid = "ImageComparator : invalid input images!";
    const QString sizes = "ImageComparator : input images not the same size!";
    const QImage white = filled(8, 8, QImage::Format_RGB32, Qt::white);

    QTest::newRow("comparing null images")
        << QStringList {invalid}
        << Check([] { return ImageComparator::compareImages(QImage(), QImage(), 0.1f) == -1.0f; });
    QTest::newRow("comparing an image of size 0") << QStringList {invalid} << Check([=] {
        return ImageComparator::compareImages(QImage(0, 0, QImage::Format_ARGB32), white, 0.1f)
            == -1.0f;
    });
    QTest::newRow("comparing with a null image")
        << QStringList {sizes}
        << Check([=] { return ImageComparator::compareImages(white, QImage(), 0.1f) == -1.0f; });
    QTest::newRow("comparing different sizes") << QStringList {sizes} << Check([=] {
        return ImageComparator::compareImages(
                   white, filled(8, 9, QImage::Format_RGB32, Qt::white), 0.0f)
            == -1.0f;
    });
    QTest::newRow("comparing odd formats") << QStringList {} << Check([=] {
        const QList<QImage::Format> formats {QImage::Format_Mono, QImage::Format_MonoLSB,
            QImage::Format_Grayscale8, QImage::Format_Grayscale16, QImage::Format_RGB16,
            QImage::Format_BGR888, QImage::Format_RGBA64_Premultiplied, QImage::Format_RGBX32FPx4,
            QImage::Format_A2BGR30_Premultiplied};
        for (QImage::Format format : formats) {
            if (ImageComparator::compareImages(filled(8, 8, format, Qt::white), white, 0.0f)
                != 100.0f)
                return false;
        }
        return true;
    });
    QTest::newRow("indexed image without colour table") << QStringList {} << Check([=] {
        QImage indexed(8, 8, QImage::Format_Indexed8);
        indexed.fill(0);
        return ImageComparator::compareImages(indexed, indexed, 0.0f) == 100.0f;
    });
    QTest::newRow("merging null images") << QStringList {} << Check([=] {
        return ImageMerger::mergeHorizontally(QImage(), QImage(), Qt::red).isNull()
            && ImageMerger::mergeVertically(QImage(), QImage(), Qt::red).isNull();
    });
    QTest::newRow("merging with a null image") << QStringList {} << Check([=] {
        const QImage merged = ImageMerger::mergeHorizontally(QImage(), white, Qt::red);
        return merged.size() == QSize(8, 8) && merged.pixel(7, 7) == qRgb(255, 255, 255);
    });
    QTest::newRow("merging odd formats") << QStringList {} << Check([=] {
        const QImage mono = filled(3, 3, QImage::Format_Mono, Qt::black);
        const QImage alpha = filled(2, 4, QImage::Format_Alpha8, Qt::transparent);
        const QImage merged = ImageMerger::mergeVertically(mono, alpha, Qt::blue);
        // Pixels are copied, not blended: the transparent ones stay transparent.
        return merged.size() == QSize(3, 7) && merged.pixel(0, 0) == qRgb(0, 0, 0)
            && merged.pixel(0, 4) == qRgba(0, 0, 0, 0)
            && merged.pixel(2, 6) == QColor(Qt::blue).rgba();
    });
    QTest::newRow("inspecting a null image") << QStringList {} << Check([] {
        using image2d::QImageHelper;
        return QImageHelper::calculateImageBoundaries(QImage(), Qt::white) == QRect(0, 0, 0, 0)
            && QImageHelper::getDepth(QImage()) == 0 && !QImageHelper::isTransparent(QImage())
            && QImageHelper::streamToBase64(QImage()) == "data:image/PNG;base64,";
    });
    QTest::newRow("removing alpha of empty images") << QStringList {} << Check([] {
        QImage empty(0, 0, QImage::Format_ARGB32);
        image2d::QImageHelper::removeAlphaChannel(empty, Qt::red);
        QImage null;
        image2d::QImageHelper::removeAlphaChannel(null, Qt::red);
        return empty.isNull() && null.isNull();
    });
    QTest::newRow("removing alpha of odd formats") << QStringList {} << Check([] {
        const QList<QImage::Format> formats {QImage::Format_Alpha8,
            QImage::Format_ARGB4444_Premultiplied, QImage::Format_RGBA64,
            QImage::Format_RGBA32FPx4_Premultiplied, QImage::Format_Indexed8};
        for (QImage::Format format : formats) {
            QImage image(5, 3, format);
            if (format == QImage::Format_Indexed8) {
                image.setColorTable({qRgba(0, 0, 0, 0)});
                image.fill(0);
            } else {
                image.fill(Qt::transparent);
            }
            image2d::QImageHelper::removeAlphaChannel(image, Qt::green);
            if (image.format() != QImage::Format_RGB32 || image.pixel(4, 2) != qRgb(0, 255, 0))
                return false;
        }
        return true;
    });
    QTest::newRow("missing resource") << QStringList {} << Check([] {
        QSize size(-7, -7);
        const QPixmap pixmap
            = QrcImageProviderImpl::requestPixmap("no/such.png", &size, QSize(10, 10));
        const QImage image = QrcImageProviderImpl::requestImage("no/such.png", nullptr, QSize());
        return pixmap.isNull() && size == QSize(0, 0) && image.isNull();
    });
}

void tst_BadInput::images()
{
    runRow();
}

void tst_BadInput::nullPointers_data()
{
    addColumns();
    QTest::newRow("null child") << QStringList {} << Check([] {
        ui::ViewNode node;
        node.addNode(nullptr);
        std::vector<std::unique_ptr<ui::Node>> children;
        children.push_back(nullptr);
        children.push_back(nullptr);
        node.addNodes(std::move(children));
        return node.getNodes().empty() && !node.isAltered();
    });
    QTest::newRow("null dependency") << QStringList {} << Check([] {
        ui::BookmarkNode bookmark;
        bookmark.addDependency(nullptr);
        return bookmark.getDependencies().empty() && !bookmark.isAltered()
            && !bookmark.isDependantOn(QString());
    });
    QTest::newRow("replicating null")
        << QStringList {}
        << Check([] { return !ui::NodeFactory::replicateRecursively(nullptr, {}); });
    QTest::newRow("null widget shortcut") << QStringList {} << Check([] {
        ShortcutManager shortcuts;
        return shortcuts.addWidgetShortcut(nullptr, QKeySequence("Ctrl+K")) == nullptr
            && shortcuts.findShortCutFor(nullptr, QKeySequence("Ctrl+K")) == nullptr
            && shortcuts.getShortcuts().empty();
    });
    QTest::newRow("null wheel event") << QStringList {} << Check([] {
        WheelEventHandler wheel;
        return wheel.handleWheelEvent(nullptr) == 0;
    });
    QTest::newRow("null size pointer") << QStringList {} << Check([] {
        return QrcImageProviderImpl::requestPixmap("no/such.png", nullptr, QSize(4, 4)).isNull();
    });
}

void tst_BadInput::nullPointers()
{
    runRow();
}

QTEST_MAIN(tst_BadInput)
#include "tst_badinput.moc"
