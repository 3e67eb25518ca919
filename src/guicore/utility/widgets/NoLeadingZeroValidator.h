#pragma once

#include <guicore/guicore_export.h>

#include <QIntValidator>

/// An integer validator that turns a leading zero into "1": a typed "0" becomes the smallest
/// positive value instead of being refused, so the field never shows a zero-padded number.
class GUICORE_EXPORT NoLeadingZeroValidator : public QIntValidator
{
    Q_OBJECT

public:
    /// parent owns the validator, as for any QObject.
    explicit NoLeadingZeroValidator(QObject* parent = nullptr);
    NoLeadingZeroValidator(int bottom, int top, QObject* parent = nullptr);

    State validate(QString& input, int& pos) const override;
};
