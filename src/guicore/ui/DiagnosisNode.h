#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>

namespace ui {

/// A diagnosis data object shown in the case.
class GUICORE_EXPORT DiagnosisNode : public DataObjectNode
{
public:
    explicit DiagnosisNode(const QString& dataObjectUUID = QString());
    /// Copies the properties of every class level; the children are not copied.
    DiagnosisNode(const DiagnosisNode& other);
    DiagnosisNode& operator=(const DiagnosisNode&) = delete;
    ~DiagnosisNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

protected:
    bool operator==(const DiagnosisNode& other) const;
};

} // namespace ui
