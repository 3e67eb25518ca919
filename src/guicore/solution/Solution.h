#pragma once

#include <guicore/guicore_export.h>
#include <guicore/solution/Feature.h>

#include <QList>
#include <QString>

class SolutionStep;
class View;

/// One workflow of the application: its steps in order and its views, one of them current.
/// Copies are shallow: they share the pointed-to steps and views, none of which is owned. A step
/// or view destroyed elsewhere is dropped from every solution that lists it.
class GUICORE_EXPORT Solution : public solution::Feature
{
public:
    /// A solution without steps or views and without a current view.
    Solution(QString id, QString name);
    /// @{
    /// Shallow: the copy lists the same steps and views, and the same current view.
    Solution(const Solution& other);
    Solution& operator=(const Solution& other);
    /// @}
    /// The solution manager forgets the solution, and the active solution if it was this one.
    ~Solution() override;

    /// The display name given at construction.
    QString getName() const;

    /// The steps in workflow order; not owned by the caller.
    QList<SolutionStep*> getSolutionSteps() const;
    /// Appends without duplicate or null check; does not take ownership.
    void addSolutionStep(SolutionStep* step);

    /// The views; not owned by the caller.
    QList<View*> getViews() const;
    /// Appends without duplicate or null check; does not take ownership.
    void addView(View* view);
    /// Removes the first occurrence, if any; the view is not deleted.
    void removeView(View* view);
    /// The first view in list order with this exact id, or null; not owned by the caller.
    View* getViewById(const QString& id) const;

    /// Not owned by the caller.
    View* getCurrentView() const;
    /// Null is ignored, so the current view cannot be cleared this way. Does not take ownership.
    void setCurrentView(View* view);

private:
    void watchBorrowed();
    void forget(const void* destroyed);

    QString m_name;
    QList<SolutionStep*> m_solutionSteps;
    QList<View*> m_views;
    View* m_currentView = nullptr;
};
