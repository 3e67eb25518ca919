#include "Solution.h"

#include "Feature_p.h"
#include <guicore/view/View.h>

using solution::detail::FeatureWatchers;

Solution::Solution(QString id, QString name)
    : solution::Feature(id)
    , m_name(std::move(name))
{
    watchBorrowed();
}

Solution::Solution(const Solution& other)
    : solution::Feature(other)
    , m_name(other.m_name)
    , m_solutionSteps(other.m_solutionSteps)
    , m_views(other.m_views)
    , m_currentView(other.m_currentView)
{
    watchBorrowed();
}

Solution& Solution::operator=(const Solution& other) = default;

Solution::~Solution()
{
    FeatureWatchers::remove(this);
    // The solution manager keeps solutions as Solution*; tell it this address while the
    // solution is still one.
    FeatureWatchers::announceDestroyed(this);
}

void Solution::watchBorrowed()
{
    // A solution is no QObject and cannot listen to destroyed(); steps and views announce their
    // end to it instead.
    FeatureWatchers::add(this, [this](const void* destroyed) { forget(destroyed); });
}

void Solution::forget(const void* destroyed)
{
    const auto same
        = [destroyed](const auto* entry) { return static_cast<const void*>(entry) == destroyed; };
    m_solutionSteps.removeIf(same);
    m_views.removeIf(same);
    if (same(m_currentView))
        m_currentView = nullptr;
}

QString Solution::getName() const
{
    return m_name;
}

QList<SolutionStep*> Solution::getSolutionSteps() const
{
    return m_solutionSteps;
}

void Solution::addSolutionStep(SolutionStep* step)
{
    m_solutionSteps.append(step);
}

QList<View*> Solution::getViews() const
{
    return m_views;
}

void Solution::addView(View* view)
{
    m_views.append(view);
}

void Solution::removeView(View* view)
{
    m_views.removeOne(view);
}

View* Solution::getViewById(const QString& id) const
{
    for (View* view : m_views) {
        if (view && view->getID() == id)
            return view;
    }
    return nullptr;
}

View* Solution::getCurrentView() const
{
    return m_currentView;
}

void Solution::setCurrentView(View* view)
{
    if (!view)
        return;
    m_currentView = view;
}
