// Malformed input at every boundary where the library takes data from outside: style files and
// palettes, date texts, tooth names, stored state trees, images of no size or unusual formats,
// and null pointers that are documented as ignored. Each row states the warnings the input must
// produce (exact texts) and checks that the result is the neutral one: no crash, no exception,
// no partial result.

#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>
#include <guicore/ui/BookmarkNode.h>
#include <guicore/ui/NodeSerializer.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/ui/Viewer3DNode.h>
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
    const QString badPattern = "DateMatcher: Given date pattern is not valid! Pattern not set.";
    const QString badDate = "DateMatcher: Given date is not in correct date format!";
    const QString misplaced = "DateMatcher: Date is not in correct format.";

    const auto matcher = [](const QString& format, const QString& pattern) {
        DateMatcher result;
        result.setDateFormat(format);
        result.setPattern(pattern);
        return result;
    };
    QTest::newRow("pattern too long") << QStringList {badPattern} << Check([=] {
        DateMatcher dates = matcher("dd.MM.yyyy", "DD.03.YYYY");
        dates.setPattern("DD.03.YYYYY");
        return dates.match("05.03.2024");
    });
    QTest::newRow("empty date") << QStringList {badDate}
                                << Check([=] { return !DateMatcher().match(QString()); });
    QTest::newRow("other separator") << QStringList {
        badDate} << Check([=] { return !matcher("dd-MM-yyyy", "DD-MM-YYYY").match("05/03/2024"); });
    QTest::newRow("non-ASCII digits") << QStringList {
        badDate} << Check([=] { return !DateMatcher().match(QString::fromUtf8("٠٥-٠٣-٢٠٢٤")); });
    QTest::newRow("separators at no expected place")
        << QStringList {misplaced}
        << Check([=] { return !matcher("yyyy-MM-dd", "YYYY-MM-DD").match("2-0240305-"); });
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
    QTest::newRow("range ending beyond the last tooth") << QStringList {} << Check([=] {
        return ToothNameGenerator::displayName({Tooth(5), Tooth(99)}, false, true, true).isEmpty();
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
    QTest::newRow("another format")
        << QStringList {"NodeSerializer : the document does not hold a state tree."}
        << unread(R"({"format": "Other", "root": {}})");
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
    QTest::newRow("unknown kind is kept") << QStringList {} << Check([] {
        const QByteArray json = document(
            R"({"type": "FutureNode", "versions": {"Node": "1.0", "FutureNode": "3.1"}, )"
            R"("properties": {"FutureNode": {"x": 1}}, "children": [)"
            + viewNode("") + "]}");
        const std::unique_ptr<ui::Node> tree = ui::NodeSerializer::read(json);
        return tree && tree->getNodes().size() == 1
            && ui::NodeSerializer::write(*tree).contains("\"FutureNode\": \"3.1\"");
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
    const QImage white = filled(8, 8, QImage::Format_RGB32, Qt::white);

    QTest::newRow("comparing null images")
        << QStringList {invalid}
        << Check([] { return ImageComparator::compareImages(QImage(), QImage(), 0.1f) == -1.0f; });
    QTest::newRow("comparing an image of size 0") << QStringList {invalid} << Check([=] {
        return ImageComparator::compareImages(QImage(0, 0, QImage::Format_ARGB32), white, 0.1f)
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
    QTest::newRow("null widget shortcut") << QStringList {} << Check([] {
        ShortcutManager shortcuts;
        return shortcuts.addWidgetShortcut(nullptr, QKeySequence("Ctrl+K")) == nullptr
            && shortcuts.findShortCutFor(nullptr, QKeySequence("Ctrl+K")) == nullptr
            && shortcuts.getShortcuts().empty();
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
