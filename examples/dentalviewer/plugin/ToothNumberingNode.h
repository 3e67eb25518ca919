#pragma once

#include <guicore/ui/NodeKind.h>

// The tooth chart's numbering ("FDI" or "UNIV") in the state tree, under the chart's view node. An
// application kind: the plug-in registers it with the node factory while it is loaded, so a state
// file read then gives it back as itself; read without the plug-in it stays a placeholder that is
// written back unchanged.
class ToothNumberingNode : public ui::NodeKind<ToothNumberingNode, ui::Node>
{
public:
    static QString getClassTypeId() { return QStringLiteral("ToothNumberingNode"); }
    static const ui::NodePropertyTable& properties();

    const QString& getNotation() const { return m_notation; }
    void setNotation(const QString& notation) { assign(m_notation, notation); }

private:
    QString m_notation;
};
