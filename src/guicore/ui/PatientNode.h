#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>

namespace ui {

/// The patient whose case the tree describes; its UUID may be empty.
class GUICORE_EXPORT PatientNode : public DataObjectNode
{
public:
    explicit PatientNode(const QString& dataObjectUUID = QString());
    /// Copies the properties of every class level; the children are not copied.
    PatientNode(const PatientNode& other);
    PatientNode& operator=(const PatientNode&) = delete;
    ~PatientNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

protected:
    bool operator==(const PatientNode& other) const;
};

} // namespace ui
