// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/contrast.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace ui {
namespace {

/// The light that a channel of a screen gives off.
double Light(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Light(colour.redF()) + 0.7152 * Light(colour.greenF()) +
         0.0722 * Light(colour.blueF());
}

QColor Mixed(const QColor& one, const QColor& other, float share) {
  const auto mix = [share](float a, float b) { return a * share + b * (1 - share); };
  return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                          mix(one.blueF(), other.blueF()));
}

/// With the smallest share of the text's colour, from `least` on, that is legible.
QColor LegiblyMixed(const QColor& text, const QColor& other, float least, const QColor& ground) {
  constexpr float step = 0.05F;
  for (float share = least; share < 1; share += step) {
    const QColor mixed = Mixed(text, other, share);
    if (Contrast(mixed, ground) >= legibleContrast) return mixed;
  }
  return text;
}

/// What is made of a text and the ground on which it stands.
struct FaintText {
  QPalette::ColorGroup group;
  QPalette::ColorRole role, text, ground;
};

constexpr FaintText faintTexts[] = {
    {QPalette::All, QPalette::PlaceholderText, QPalette::Text, QPalette::Base},
    {QPalette::Disabled, QPalette::Text, QPalette::Text, QPalette::Base},
    {QPalette::Disabled, QPalette::WindowText, QPalette::WindowText, QPalette::Window},
    {QPalette::Disabled, QPalette::ButtonText, QPalette::ButtonText, QPalette::Button},
};

/// Sets those colours only, so that all others go on following the desktop.
void MendFaintText() {
  const QPalette now = QApplication::palette();
  QPalette own;
  bool differs = false;
  for (const auto& [group, role, text, ground] : faintTexts) {
    const QColor faint =
        LegiblyFaint(now.color(QPalette::Active, text), now.color(QPalette::Active, ground));
    own.setColor(group, role, faint);
    const auto shown = group == QPalette::All ? QPalette::Active : group;
    differs = differs || now.color(shown, role) != faint;
  }
  if (differs) QApplication::setPalette(own);
}

class PaletteWatch : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == parent() && event->type() == QEvent::ApplicationPaletteChange) {
      MendFaintText();
    }
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

QColor LegiblyFaint(const QColor& text, const QColor& ground) {
  constexpr float half = 0.5F;
  return LegiblyMixed(text, ground, half, ground);
}

QColor LegiblyColoured(const QColor& colour, const QColor& text, const QColor& ground) {
  return LegiblyMixed(text, colour, 0, ground);
}

void KeepFaintTextLegible() {
  MendFaintText();
  qApp->installEventFilter(new PaletteWatch(qApp));
}

}  // namespace ui
