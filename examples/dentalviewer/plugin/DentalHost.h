#pragma once

#include <QString>

class QWidget;

// What the plug-in asks of the window that hosts it. The host implements it and outlives the
// plug-in's use of it.
class DentalHost
{
public:
    virtual ~DentalHost() = default;

    // A hint or a result for the status bar; an empty text clears it, a timeout of 0 keeps it.
    virtual void showStatus(const QString& text, int timeoutMs) = 0;
    // A problem the person must see: shown until they dismiss it.
    virtual void reportProblem(const QString& text) = 0;
    // The document or what the views show changed; the host saves it soon.
    virtual void stateChanged() = 0;
    // Brings a view or sub view on screen, by its id.
    virtual void showView(const QString& id) = 0;
    // Switches the colour palette ("dark" or "light") at once and keeps it as the preference;
    // the host then asks the plug-in to restyle.
    virtual void applyPalette(const QString& name) = 0;
    // The parent of the plug-in's dialogs; borrowed.
    virtual QWidget* dialogParent() const = 0;
};
