#pragma once

#include <guicore/guicore_export.h>

#include <QIntValidator>

/// An integer validator that turns a leading zero into "1": a typed "0" becomes the smallest
/// positive value instead of being refused, so the field never shows a zero-padded number.
///
/// The replacement happens inside validate(), so the text of the line edit changes while the
/// user types: "05" becomes "1", not "5".
class GUICORE_EXPORT NoLeadingZeroValidator : public QIntValidator
{
    Q_OBJECT

public:
    /// parent owns the validator, as for any QObject.
    explicit NoLeadingZeroValidator(QObject* parent = nullptr);
    /// Accepts integers from bottom to top, as QIntValidator does; parent owns the validator.
    NoLeadingZeroValidator(int bottom, int top, QObject* parent = nullptr);

    /// Replaces a non-empty input that starts with "0" by "1", then validates as QIntValidator.
    State validate(QString& input, int& pos) const override;
};
