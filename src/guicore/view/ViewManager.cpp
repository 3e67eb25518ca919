#include "ViewManager.h"

ViewManager::ViewManager(QObject* parent)
    : QObject(parent)
{
}

ViewManager::~ViewManager() = default;

void ViewManager::initialize() { }

void ViewManager::start() { }

void ViewManager::stop() { }

void ViewManager::stopActions() { }

void ViewManager::registerSceneEventHandler(events::SceneEventHandler*) { }

void ViewManager::unregisterSceneEventHandler(events::SceneEventHandler*) { }

void ViewManager::setCursor(const QCursor&, events::SceneEventViewerFilter) { }

void ViewManager::resetCursor() { }

void ViewManager::refresh() { }

ViewSettings ViewManager::getViewSettings() const
{
    ViewSettings settings = m_viewSettings;
    writeViewSettings(settings);
    return settings;
}

void ViewManager::setViewSettings(const ViewSettings& settings)
{
    m_viewSettings = settings;
    readViewSettings(m_viewSettings);
}

void ViewManager::readViewSettings(const ViewSettings&) { }

void ViewManager::writeViewSettings(ViewSettings&) const { }
