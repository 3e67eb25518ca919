#include "NoLeadingZeroValidator.h"

NoLeadingZeroValidator::NoLeadingZeroValidator(QObject* parent)
    : QIntValidator(parent)
{
}

NoLeadingZeroValidator::NoLeadingZeroValidator(int bottom, int top, QObject* parent)
    : QIntValidator(bottom, top, parent)
{
}

QValidator::State NoLeadingZeroValidator::validate(QString& input, int& pos) const
{
    if (!input.isEmpty() && input.startsWith(QLatin1Char('0')))
        input = QStringLiteral("1");
    return QIntValidator::validate(input, pos);
}
