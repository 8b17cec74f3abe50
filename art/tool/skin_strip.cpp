// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin_strip.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

#include "skin_surface.h"
#include "surface_shape.h"
#include "surface_tint.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

using ui::layouts::Size;
using ui::layouts::Strip;

enum class State { Up, Hover, Down, Disabled };
constexpr State kToolStates[] = {State::Up, State::Hover, State::Down, State::Disabled};
constexpr State kToolStatesWithoutHover[] = {State::Up, State::Down, State::Disabled};

// How the face of one state is lit.
struct Finish {
  float top, bottom;  // towards the lit (1) or the shaded (-1) colour, at either end
  float bevel;        // strength of the edge's light; negative for a pressed one
  float accent;       // of the line inside the border
};

Finish FinishOf(State state) {
  switch (state) {
    case State::Up:
      return {0.45F, -0.30F, 1, 0};
    case State::Hover:
      return {0.85F, 0.10F, 1, 1};
    case State::Down:
      return {-0.45F, 0.05F, -1, 0};
    case State::Disabled:
      return {0.05F, -0.10F, 0.5F, 0};
  }
  return {};
}

class FacePainter {
 public:
  FacePainter(const SkinButtons& buttons, Size cell, State state)
      : buttons_(buttons),
        cell_(cell),
        finish_(FinishOf(state)),
        down_(state == State::Down),
        shape_(QRectF(0, 0, cell.width, cell.height),
               static_cast<float>(ui::layouts::buttonRadius)) {}

  QImage Paint() const {
    QImage face(cell_.width * kSkinScale, cell_.height * kSkinScale, QImage::Format_RGB32);
    for (int py = 0; py < face.height(); ++py) {
      QRgb* line = reinterpret_cast<QRgb*>(face.scanLine(py));
      for (int px = 0; px < face.width(); ++px) {
        line[px] = TintAt((static_cast<float>(px) + 0.5F) / kSkinScale,
                          (static_cast<float>(py) + 0.5F) / kSkinScale)
                       .Pixel();
      }
    }
    return face;
  }

 private:
  Tint TintAt(float x, float y) const {
    const Depth depth = shape_.At(x, y);
    const float height = static_cast<float>(cell_.height);
    const float along = std::clamp((y + 0.12F * (x - height)) / height, 0.0F, 1.0F);
    const float light = std::lerp(finish_.top, finish_.bottom, along);
    Tint tint = Mix(Tint::Of(buttons_.face), Tint::Of(light > 0 ? buttons_.lit : buttons_.shade),
                    std::abs(light));
    const float edge = std::exp(-(depth.inside - 1.2F) * 1.1F) * finish_.bevel;
    const float tilt = edge * (depth.x + depth.y) * 0.7F;
    tint = Mix(tint, Tint::Of(tilt > 0 ? buttons_.lit : buttons_.shade),
               std::min(1.0F, std::abs(tilt)));
    if (down_) tint = Mix(tint, Tint::Of(buttons_.shade), 0.7F * std::exp(-UpperLeft(x, y) / 2.5F));
    tint = Mix(tint, Tint::Of(buttons_.accent),
               finish_.accent * std::clamp(1.9F - std::abs(depth.inside - 1.9F) * 2, 0.0F, 1.0F));
    return Mix(tint, Tint::Of(buttons_.border), 1 - Ease(0.5F, 1.3F, depth.inside));
  }

  // How far inside a place stands as seen from the lamp: the rim's shadow falls on a pressed face.
  float UpperLeft(float x, float y) const { return std::max(0.0F, shape_.At(x - 1, y - 1).inside); }

  const SkinButtons& buttons_;
  Size cell_;
  Finish finish_;
  bool down_;
  RoundedRect shape_;
};

// An icon in the colours of its state; null where the document is no drawing.
QImage PaintGlyph(const QByteArray& document, const SkinButtons& buttons, QSize size, State state) {
  const bool disabled = state == State::Disabled;
  QString text = QString::fromUtf8(document);
  text.replace(u"{ink}"_s, buttons.ink.name())
      .replace(u"{accent}"_s, (disabled ? buttons.ink : buttons.glyphAccent).name())
      .replace(u"{paper}"_s, buttons.lit.name());
  QSvgRenderer drawing(text.toUtf8());
  if (!drawing.isValid()) return {};
  QImage glyph(size, QImage::Format_ARGB32_Premultiplied);
  glyph.fill(Qt::transparent);
  QPainter painter(&glyph);
  drawing.render(&painter);
  return glyph;
}

void DrawGlyph(QPainter& painter, QPoint place, const QImage& glyph, State state) {
  painter.setOpacity(state == State::Disabled ? 0.38 : 1);
  const int pressed = state == State::Down ? kSkinScale : 0;
  painter.drawImage(place + QPoint(pressed, pressed), glyph);
  painter.setOpacity(1);
}

}  // namespace

QImage PaintSystemButtons(const SkinParameters& skin) {
  const Strip& strip = ui::layouts::systemButtons;
  QImage picture(strip.cell.width * strip.columns * kSkinScale, strip.cell.height * kSkinScale,
                 QImage::Format_RGB32);
  QPainter painter(&picture);
  painter.drawImage(0, 0, FacePainter(skin.buttons, strip.cell, State::Up).Paint());
  painter.drawImage(strip.cell.width * kSkinScale, 0,
                    FacePainter(skin.buttons, strip.cell, State::Down).Paint());
  return picture;
}

QImage PaintToolStrip(const SkinParameters& skin, const Strip& strip, const QString& glyphFolder,
                      const QStringList& glyphs, QString* error) {
  const int width = strip.cell.width * kSkinScale, height = strip.cell.height * kSkinScale;
  QImage picture(width * strip.columns, height * strip.rows, QImage::Format_RGB32);
  QPainter painter(&picture);
  const State* states = strip.columns == 3 ? kToolStatesWithoutHover : kToolStates;
  const ui::layouts::Rect& icon = strip.icon;
  const QPoint place(icon.x * kSkinScale, icon.y * kSkinScale);
  const QSize size(icon.width * kSkinScale, icon.height * kSkinScale);
  for (int row = 0; row < strip.rows; ++row) {
    const QString& name = glyphs.at(row);
    QFile file(u"%1/%2.svg"_s.arg(glyphFolder, name));
    const QByteArray document = !name.isEmpty() && file.open(QFile::ReadOnly) ? file.readAll() : "";
    for (int column = 0; column < strip.columns; ++column) {
      const QPoint corner(column * width, row * height);
      painter.drawImage(corner, FacePainter(skin.buttons, strip.cell, states[column]).Paint());
      if (name.isEmpty()) continue;
      const QImage glyph = PaintGlyph(document, skin.buttons, size, states[column]);
      if (glyph.isNull()) {
        *error = u"%1: not a drawing"_s.arg(file.fileName());
        return {};
      }
      DrawGlyph(painter, corner + place, glyph, states[column]);
    }
  }
  return picture;
}

}  // namespace art
