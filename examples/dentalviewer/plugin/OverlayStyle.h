#pragma once

#include <QColor>
#include <Qt>

class CustomGraphicsLabelItem;

// Colours of what the viewers draw over images. Images stay dark whatever the palette of the
// windows around them, so these colours are chosen for the image, not for the palette: a text on
// an image must keep a contrast ratio of at least 4.5 (the readability bar for normal text)
// against what lies behind it, which is its box over any image brightness.
namespace overlay {

constexpr double MINIMUM_CONTRAST = 4.5;

// The style's colour of that id ("MEASUREMENT_LINE_COLOR"), or the fallback without a style.
QColor styleColor(const char* id, const QColor& fallback);

// The contrast ratio of two opaque colours, from 1 to 21.
double contrastRatio(const QColor& a, const QColor& b);
// A translucent colour over an opaque one.
QColor composite(const QColor& over, const QColor& under);
// The box behind overlay texts: the style's label background, made dark enough to carry light
// text over the brightest anatomy (at least `opacity` opaque).
QColor textBox(double opacity = 0.6);
// `preferred` when it reaches the minimum contrast on the box over black and over white
// pixels alike; otherwise white or black, whichever does better.
QColor readableText(const QColor& preferred, const QColor& box);

// A label over the image: a readable text on the box, outlined. Texts that stay put on the
// screen take a more opaque box, which hides the lines that run under them.
void styleLabel(CustomGraphicsLabelItem& label, const QColor& preferredText, double opacity = 0.6);

// Puts the label's box, not its text's baseline, at the label's position: centred, or with the
// given edges there. The box has a constant size on screen, so this is a shift in screen pixels,
// which holds at any zoom. Kept with the label and applied again by relayout().
void anchorLabel(CustomGraphicsLabelItem& label, Qt::Alignment alignment);
// A label lays its text out again only when asked; after a change of the label font size, this
// asks it, and anchors it again.
void relayout(CustomGraphicsLabelItem& label);

} // namespace overlay
