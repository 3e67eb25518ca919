#pragma once

#include <guicore/guicore_export.h>

#include <QtGlobal>

/// The viewer settings a ViewManager carries from one view to the next on every view switch.
/// The library only copies the record; what each field means is up to the concrete managers,
/// which fill it in writeViewSettings() and apply it in readViewSettings().
struct GUICORE_EXPORT ViewSettings
{
    /// @{
    /// A field whose meaning the concrete view managers agree on; a new manager starts with 0,
    /// 0, 1.0, 0, 0, 0 and false.
    qint64 firstValue = 0;
    qint64 secondValue = 0;
    float factor = 1.0f;
    quint32 thirdValue = 0;
    qint64 fourthValue = 0;
    qint32 integer = 0;
    bool flag = false;
    /// @}

    /// @{
    /// Field by field; the factor compares exactly.
    bool operator==(const ViewSettings& other) const;
    bool operator!=(const ViewSettings& other) const { return !(*this == other); }
    /// @}
};
