#include <guicore/ui/CrossSectionalResliceViewerNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

CrossSectionalResliceViewerNode::CrossSectionalResliceViewerNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

CrossSectionalResliceViewerNode::CrossSectionalResliceViewerNode(
    const CrossSectionalResliceViewerNode& other)
    : Viewer2DNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

CrossSectionalResliceViewerNode::~CrossSectionalResliceViewerNode() = default;

QString CrossSectionalResliceViewerNode::getClassTypeId()
{
    return QStringLiteral("CrossSectionalResliceViewerNode");
}

QString CrossSectionalResliceViewerNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> CrossSectionalResliceViewerNode::clone() const
{
    return std::make_unique<CrossSectionalResliceViewerNode>(*this);
}

bool CrossSectionalResliceViewerNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const CrossSectionalResliceViewerNode*>(&other);
    return same && *this == *same;
}

bool CrossSectionalResliceViewerNode::operator==(const CrossSectionalResliceViewerNode& other) const
{
    return Viewer2DNode::operator==(other)
        && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& CrossSectionalResliceViewerNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty(
                "numberOfSlices", &CrossSectionalResliceViewerNode::m_numberOfSlices),
            detail::makeProperty("sliceSpacing", &CrossSectionalResliceViewerNode::m_sliceSpacing),
            detail::makeProperty("sliderIndex", &CrossSectionalResliceViewerNode::m_sliderIndex),
        }};
    return table;
}

void CrossSectionalResliceViewerNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Viewer2DNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void CrossSectionalResliceViewerNode::setNumberOfSlices(size_t numberOfSlices)
{
    if (detail::assignIfChanged(m_numberOfSlices, numberOfSlices))
        setAltered();
}

void CrossSectionalResliceViewerNode::setSliceSpacing(float sliceSpacing)
{
    if (detail::assignIfChanged(m_sliceSpacing, sliceSpacing))
        setAltered();
}

void CrossSectionalResliceViewerNode::setSliderIndex(int sliderIndex)
{
    if (detail::assignIfChanged(m_sliderIndex, sliderIndex))
        setAltered();
}

} // namespace ui
