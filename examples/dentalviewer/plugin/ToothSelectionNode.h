#pragma once

#include <guicore/ui/NodeKind.h>

// The tooth selected in the tooth chart, in the state tree under the chart's view node: the
// tooth's number in Universal order (1 to 32), whatever numbering is shown, or 0 for none. An
// application kind, registered with the node factory by the plug-in like ToothNumberingNode.
class ToothSelectionNode : public ui::NodeKind<ToothSelectionNode, ui::Node>
{
public:
    static QString getClassTypeId() { return QStringLiteral("ToothSelectionNode"); }
    static const ui::NodePropertyTable& properties();

    int getTooth() const { return m_tooth; }
    void setTooth(int tooth) { assign(m_tooth, tooth); }

private:
    int m_tooth = 0;
};
