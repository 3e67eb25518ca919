// The program of the guide "Saving and restoring the user-interface state": a view saves itself
// and an application node kind into a state tree, the tree goes to a file and comes back, and a
// damaged file is refused. Exits with 1 when any step does not behave as the guide says.

#include <guicore/ui/NodeFactory.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/NodeSerializer.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/view/View.h>
#include <guicore/view/ViewNodeInteractor.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QWidget>

//! [kind]
// The application's own piece of state: the zoom of a viewer. One table lists the stored
// properties; copying, comparing and (de)serialising all walk it.
class ZoomNode : public ui::NodeKind<ZoomNode, ui::Node>
{
public:
    static QString getClassTypeId() { return QStringLiteral("ZoomNode"); }
    static const ui::NodePropertyTable& properties()
    {
        static const ui::NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
            {ui::NodePropertyTable::property("zoom", &ZoomNode::m_zoom)}};
        return table;
    }

    float getZoom() const { return m_zoom; }
    void setZoom(float zoom) { assign(m_zoom, zoom); } // marks the node altered on a change

private:
    float m_zoom = 1.0f;
};
//! [kind]

// A view of the application, just enough to have an id and an interactor.
class PanoramicView : public View
{
public:
    PanoramicView()
        : View(QStringLiteral("panoramic"))
    {
    }
    ~PanoramicView() override { delete widget(); }

private:
    void createWidget() override { setWidget(new QWidget); }
};

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ui-state.json"));
    bool ok = true;

    //! [register]
    // While the code that makes the kind is loaded (a plug-in unregisters it when it closes).
    ui::NodeFactory::registerNodeKind<ZoomNode>();
    //! [register]

    //! [save]
    PanoramicView view;
    std::unique_ptr<ui::Node> root = view.createNodeInteractor()->generate(); // a ViewNode
    auto zoom = std::make_unique<ZoomNode>();
    zoom->setZoom(2.5f);
    root->addNode(std::move(zoom));
    if (!ui::NodeSerializer::writeFile(*root, path)) // QSaveFile: the old file survives a failure
        return 1;
    //! [save]

    //! [restore]
    std::unique_ptr<ui::Node> restored = ui::NodeSerializer::readFile(path);
    auto* viewNode = dynamic_cast<ui::ViewNode*>(restored.get());
    if (viewNode && viewNode->getViewId() == view.getID()) {
        for (ui::Node* child : viewNode->getNodes()) {
            if (auto* zoomNode = dynamic_cast<ZoomNode*>(child))
                ok = ok && zoomNode->getZoom() == 2.5f; // apply it to the viewer here
        }
    } else {
        ok = false;
    }
    //! [restore]

    //! [versions]
    // The versions the file was written with, per class level, for migrating old files.
    const QVersionNumber written
        = restored->getNodes().front()->getLoadingVersions().value(ZoomNode::getClassTypeId());
    //! [versions]
    ok = ok && written == QVersionNumber(1, 0) && restored->getNodes().size() == 1;

    QFile damaged(path);
    if (!damaged.open(QIODevice::WriteOnly) || damaged.write("{\"format\": ") < 0)
        return 1;
    damaged.close();
    //! [damaged]
    // A damaged file gives no tree at all, with one warning saying why; keep the defaults and
    // tell the user.
    std::unique_ptr<ui::Node> nothing = ui::NodeSerializer::readFile(path);
    if (!nothing)
        qInfo("the saved state could not be read; starting with the default layout");
    //! [damaged]
    ok = ok && !nothing;

    ui::NodeFactory::unregisterNodeKind(ZoomNode::getClassTypeId());
    if (!ok)
        qCritical("the state tree did not round-trip as the guide says");
    return ok ? 0 : 1;
}
