#include "Solution.h"

#include <guicore/view/View.h>

Solution::Solution(QString id, QString name)
    : solution::Feature(id)
    , m_name(std::move(name))
{
}

Solution::Solution(const Solution& other) = default;

Solution& Solution::operator=(const Solution& other) = default;

Solution::~Solution() = default;

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
