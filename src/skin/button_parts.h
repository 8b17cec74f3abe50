// SPDX-License-Identifier: GPL-3.0-or-later
// How the four parts of a skinned button lie: the frame picture, the caption's shadow, the caption
// over it, and the face on top, which alone receives the mouse. In twips.
#pragma once

namespace ui {

struct TwipRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const TwipRect&) const = default;
};

struct ButtonParts {
  TwipRect frame;
  TwipRect Label_2;  ///< the shadow
  TwipRect Label_1;  ///< the caption
  TwipRect Face;
};

constexpr ButtonParts PartsOfButton(const TwipRect& frame, int labelHeight, bool down) {
  constexpr int pressed = 30, shadow = 10;
  const int shift = down ? pressed : 0;
  // Rounded down also where the label is the higher one.
  const int spare = frame.height - labelHeight;
  const int above = spare >= 0 ? spare / 2 : -((1 - spare) / 2);
  const TwipRect caption{frame.left + shift, frame.top + above + shift, frame.width, labelHeight};
  return {frame,
          {caption.left + shadow, caption.top + shadow, caption.width, caption.height},
          caption,
          frame};
}

}  // namespace ui
