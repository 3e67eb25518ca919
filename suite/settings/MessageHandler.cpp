#include <settings/MessageHandler.h>

#include <QHash>
#include <QMutex>
#include <QString>

#include <QtGlobal>

namespace {

struct Registration
{
    int option = 0;
    bool seen = false;
};

struct State
{
    QMutex mutex;
    QHash<QString, Registration> registrations;
    QtMessageHandler previous = nullptr;
    bool installed = false;
};

State& state()
{
    static State s;
    return s;
}

// Decides under the lock whether a message passes; marks option-1 messages as seen.
bool letThrough(const QString& message)
{
    State& s = state();
    QMutexLocker locker(&s.mutex);
    const auto it = s.registrations.find(message);
    if (it == s.registrations.end())
        return true;
    switch (it->option) {
    case 1:
        if (it->seen)
            return false;
        it->seen = true;
        return true;
    case 2:
        return false;
    default:
        return true;
    }
}

void filteringHandler(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!letThrough(message))
        return;
    QtMessageHandler previous;
    {
        QMutexLocker locker(&state().mutex);
        previous = state().previous;
    }
    if (previous)
        previous(type, context, message);
}

} // namespace

void MessageHandler::setMessageSuppressed(const QString& message, int option)
{
    State& s = state();
    QMutexLocker locker(&s.mutex);
    Registration& registration = s.registrations[message];
    if (registration.option != option) {
        registration.option = option;
        registration.seen = false;
    }
}

void MessageHandler::install()
{
    State& s = state();
    QMutexLocker locker(&s.mutex);
    if (s.installed)
        return;
    s.installed = true;
    // Held across the swap: a message logged meanwhile waits instead of finding no previous.
    s.previous = qInstallMessageHandler(filteringHandler);
}

void MessageHandler::uninstall()
{
    State& s = state();
    QMutexLocker locker(&s.mutex);
    if (!s.installed)
        return;
    qInstallMessageHandler(s.previous);
    s.previous = nullptr;
    s.installed = false;
    s.registrations.clear();
}
