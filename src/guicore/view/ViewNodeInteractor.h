#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeInteractor.h>

class View;

namespace ui {

/// Connects a view to the state tree: generates the "ViewNode" that stands for the view and
/// applies such a node back to it. Views that restore state from a node override apply().
class GUICORE_EXPORT ViewNodeInteractor : public NodeInteractor
{
public:
    /// Borrows view, which must outlive the interactor.
    explicit ViewNodeInteractor(View& view);

    /// A new ViewNode carrying the view's id; ownership passes to the caller.
    std::unique_ptr<Node> generate() override;
    ~ViewNodeInteractor() override;
    /// Does nothing here. Does not take ownership of node, which may be null.
    virtual void apply(Node* node);

protected:
    /// The id of the view, which the generated node carries.
    QString getViewID() const;
    /// Not owned.
    View& getView() const { return m_view; }

private:
    View& m_view;
};

} // namespace ui
