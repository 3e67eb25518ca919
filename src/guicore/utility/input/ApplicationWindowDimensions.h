#pragma once

#include <guicore/guicore_export.h>

/// The screen area a remote pointing device points at: its physical size and where it lies on
/// the desktop in pixels.
struct GUICORE_EXPORT ApplicationWindowDimensions
{
    /// @{
    /// Physical height and width of the area, in centimetres.
    double heightCm = 0.0;
    double widthCm = 0.0;
    /// @}
    /// @{
    /// Height and width of the area, in desktop pixels.
    int heightPx = 0;
    int widthPx = 0;
    /// @}
    /// @{
    /// Left and top edge of the area, in desktop pixels.
    int x = 0;
    int y = 0;
    /// @}

    /// The primary screen: its physical size in centimetres and its geometry in desktop pixels.
    /// All zero when there is no screen.
    static ApplicationWindowDimensions createDefault();
};
