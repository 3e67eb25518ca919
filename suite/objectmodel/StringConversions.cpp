#include <objectmodel/StringConversions.h>

#include <QKeySequence>
#include <QStringList>

QString StringConversions::qkeySequencesToAppendableString(const QList<QKeySequence>& sequences)
{
    if (sequences.isEmpty())
        return QString();
    QStringList texts;
    texts.reserve(sequences.size());
    for (const QKeySequence& sequence : sequences)
        texts.append(sequence.toString(QKeySequence::NativeText));
    return QStringLiteral(" (") + texts.join(QStringLiteral(", ")) + QLatin1Char(')');
}
