#pragma once

#include <objectmodel/objectmodel_export.h>

#include <QList>
#include <QString>

class QKeySequence;

/// Texts made from Qt values for display.
class OBJECTMODEL_EXPORT StringConversions
{
public:
    StringConversions() = delete;

    /// A suffix that can be appended to a tooltip as it stands: "" for no sequences, otherwise
    /// " (" + the sequences in the platform's native text, joined by ", ", + ")".
    static QString qkeySequencesToAppendableString(const QList<QKeySequence>& sequences);
};
