// Malformed input at every boundary where the library takes data from outside: style files and
// palettes, tooth names, stored state trees, images of no size or unusual formats,
// and null pointers that are documented as ignored. Each row states the warnings the input must
// produce (exact texts) and checks that the result is the neutral one: no crash, no exception,
// no partial result.

#include <guicore/ui/NodeSerializer.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/ui/Viewer3DNode.h>
#include <guicore/utility/dental/ToothNameGenerator.h>
#include <guicore/utility/image/ImageComparator.h>
#include <guicore/utility/image/ImageMerger.h>
#include <guicore/utility/image/QImageHelper.h>
#include <guicore/utility/image/QrcImageProviderImpl.h>
#include <guicore/utility/shortcuts/ShortcutManager.h>

#include <stylereader/StyleReader.h>

#include <QTemporaryDir>
#include <QtTest>

/// Runs the input and tells whether the result is the neutral one.
using Check = std::function<bool()>;
Q_DECLARE_METATYPE(Check)

namespace {

QByteArray viewer3D(const QByteArray& properties)
{
    return R"({"format": "GuiCoreStateTree", "formatVersion": 1, "root": {"type": "Viewer3DNode", )"
           R"("versions": {"Node": "1.0"}, "properties": {"Viewer3DNode": )"
        + properties + "}}}";
}

} // namespace

class tst_BadInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void neutralResult_data();
    void neutralResult()
    {
        QFETCH(QStringList, warnings);
        QFETCH(Check, check);
        for (const QString& warning : warnings)
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        QVERIFY(check());
    }

private:
    QTemporaryDir directory;
};

void tst_BadInput::neutralResult_data()
{
    QTest::addColumn<QStringList>("warnings");
    QTest::addColumn<Check>("check");
    const auto row = [](const char* name, const QStringList& warnings, const Check& check) {
        QTest::newRow(name) << warnings << check;
    };

    // Palettes: a broken section header is reported and reading goes on; a palette without a
    // name is never found, not even as a section of no name.
    QFile file(directory.filePath("palette.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly)
        && file.write("[dark]\n@A: #000000;\n[broken\n@B: #ffffff;\n"));
    file.close();
    const QString palette = file.fileName();
    const QString brokenHeader = "StyleReader : malformed line 3 in " + palette + ": [broken";
    row("palette with a broken section header or without a name",
        {brokenHeader, "StyleReader : unknown palette  in " + palette, brokenHeader}, [=] {
            const QHash<QString, QString> map
                = StyleReader().convertFilesToStyleMap("dark", palette);
            return map.value("@A") == "#000000" && map.value("@B") == "#ffffff"
                && StyleReader().convertFilesToStyleMap(QString(), palette).isEmpty();
        });

    // Tooth names and numbers of no tooth.
    using Tooth = ToothChart::Tooth;
    row("names and numbers of no tooth", {}, [] {
        const auto unknown = [](const QString& name, const QString& numbering) {
            return ToothNameGenerator::getToothIdByName(name, numbering) == ToothChart::UnknownTooth
                && !ToothNameGenerator::getToothTypeAndDentitionByName(name, numbering).has_value();
        };
        return unknown("", "FDI") && unknown("10", "FDI") && unknown("eleven", "FDI")
            && unknown("1.5", "FDI") && unknown("33", "UNIV") && unknown("0", "UNIV")
            && unknown("-8", "UNIV") && ToothNameGenerator::getNextTooth("xyz").isEmpty()
            && ToothNameGenerator::getPreviousTooth(QString()).isEmpty()
            && ToothNameGenerator::getName(Tooth(-5), QString("UNIV"), true) == "?"
            && ToothNameGenerator::displayName({Tooth(5), Tooth(99)}, false, true, true).isEmpty();
    });

    // Stored state trees.
    const auto unread = [](const QByteArray& json) {
        return Check([=] { return ui::NodeSerializer::read(json) == nullptr; });
    };
    const QString notJson = "NodeSerializer : the state tree is not valid JSON: ";
    row("empty text", {notJson + "illegal value at offset 0."}, unread(QByteArray()));
    // Infinity has no JSON form: a tree that took it in could never be written back.
    const QString wrongType = "NodeSerializer : malformed state tree, nothing was read: property "
                              "\"%1\" of \"Viewer3DNode\" in \"Viewer3DNode\" has the wrong type.";
    row("number beyond the range of a float", {wrongType.arg("nearDistance")},
        unread(viewer3D(R"({"nearDistance": -1e300})")));
    row("vector beyond the range of a float", {wrongType.arg("cameraPosition")},
        unread(viewer3D(R"({"cameraPosition": [0, 4e38, 0]})")));
    row("largest float is kept", {}, [] {
        const std::unique_ptr<ui::Node> tree
            = ui::NodeSerializer::read(viewer3D(R"({"farDistance": 3.4028234663852886e38})"));
        const auto* viewer = dynamic_cast<const ui::Viewer3DNode*>(tree.get());
        return viewer && viewer->getFarDistance() == std::numeric_limits<float>::max()
            && ui::NodeSerializer::read(ui::NodeSerializer::write(*viewer)) != nullptr;
    });

    // Images of no size and of unusual formats.
    row("comparing indexed images without colours", {}, [] {
        QImage indexed(8, 8, QImage::Format_Indexed8);
        indexed.fill(0);
        return ImageComparator::compareImages(indexed, indexed, 0.0f) == 100.0f;
    });
    row("merging null and odd images", {}, [] {
        QImage mono(3, 3, QImage::Format_Mono);
        mono.setColorTable({qRgb(0, 0, 0), qRgb(128, 128, 128)});
        mono.fill(0u);
        QImage transparent(2, 4, QImage::Format_Alpha8);
        transparent.fill(Qt::transparent);
        const QImage merged = ImageMerger::mergeVertically(mono, transparent, Qt::blue);
        // Pixels are copied, not blended: the transparent ones stay transparent.
        return ImageMerger::mergeHorizontally(QImage(), QImage(), Qt::red).isNull()
            && ImageMerger::mergeVertically(QImage(), QImage(), Qt::red).isNull()
            && merged.size() == QSize(3, 7) && merged.pixel(0, 0) == qRgb(0, 0, 0)
            && merged.pixel(0, 4) == qRgba(0, 0, 0, 0)
            && merged.pixel(2, 6) == QColor(Qt::blue).rgba();
    });
    row("inspecting a null image", {}, [] {
        using image2d::QImageHelper;
        QImage empty(0, 0, QImage::Format_ARGB32);
        QImageHelper::removeAlphaChannel(empty, Qt::red);
        return QImageHelper::calculateImageBoundaries(QImage(), Qt::white) == QRect(0, 0, 0, 0)
            && QImageHelper::getDepth(QImage()) == 0 && !QImageHelper::isTransparent(QImage())
            && QImageHelper::streamToBase64(QImage()) == "data:image/PNG;base64," && empty.isNull();
    });
    row("missing resource", {}, [] {
        QSize size(-7, -7);
        return QrcImageProviderImpl::requestPixmap("no/such.png", &size, QSize(10, 10)).isNull()
            && size == QSize(0, 0)
            && QrcImageProviderImpl::requestImage("no/such.png", nullptr, QSize()).isNull()
            && QrcImageProviderImpl::requestPixmap("no/such.png", nullptr, QSize(4, 4)).isNull();
    });

    // Null pointers documented as ignored.
    row("null children and widget", {}, [] {
        ui::ViewNode node;
        std::vector<std::unique_ptr<ui::Node>> children;
        children.push_back(nullptr);
        children.push_back(nullptr);
        node.addNodes(std::move(children));
        ShortcutManager shortcuts;
        return node.getNodes().empty() && !node.isAltered()
            && !shortcuts.findShortCutFor(nullptr, QKeySequence("Ctrl+K"));
    });
}

QTEST_MAIN(tst_BadInput)
#include "tst_badinput.moc"
