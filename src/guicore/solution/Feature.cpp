#include "Feature.h"

namespace solution {

Feature::Feature(const QString& id)
    : m_id(id)
{
}

Feature::Feature(const Feature& other) = default;

Feature& Feature::operator=(const Feature& other) = default;

Feature::~Feature() = default;

QString Feature::getID() const
{
    return m_id;
}

void Feature::setID(const QString& id)
{
    m_id = id;
}

} // namespace solution
