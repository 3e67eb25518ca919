#pragma once

#include <guicore/ui/NodeKind.h>

// The main window in the state tree, under the root: its geometry and the layout of its bars and
// docks, as Qt saves them (base64). A kind of the host's own, registered with the node factory
// before the state is read.
class MainWindowNode : public ui::NodeKind<MainWindowNode, ui::Node>
{
public:
    static QString getClassTypeId() { return QStringLiteral("MainWindowNode"); }
    static const ui::NodePropertyTable& properties();

    const QString& getGeometry() const { return m_geometry; }
    void setGeometry(const QString& geometry) { assign(m_geometry, geometry); }
    const QString& getLayout() const { return m_layout; }
    void setLayout(const QString& layout) { assign(m_layout, layout); }

private:
    QString m_geometry;
    QString m_layout;
};
