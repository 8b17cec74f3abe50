// SPDX-License-Identifier: GPL-3.0-or-later
#include "set_parameters.h"

#include <QSettings>

namespace art {

using namespace Qt::StringLiterals;

namespace {

// Reads keys and remembers the first one that failed.
class Reader {
 public:
  explicit Reader(const QString& path) : settings_(path, QSettings::IniFormat) {}

  const QString& FirstFault() const { return fault_; }
  void Enter(const QString& group) { group_ = group; }

  QString Text(const char* key) {
    const QString name = group_ + u'/' + QString::fromLatin1(key);
    QString text = settings_.value(name).toString();
    if (text.isEmpty()) Fail(name);
    return text;
  }

  float Number(const char* key) {
    bool read = false;
    const float number = Text(key).toFloat(&read);
    if (!read) Fail(group_ + u'/' + QString::fromLatin1(key));
    return number;
  }

  int Whole(const char* key) { return static_cast<int>(Number(key)); }

  QColor Colour(const char* key) {
    const QColor colour(Text(key));
    if (!colour.isValid()) Fail(group_ + u'/' + QString::fromLatin1(key));
    return colour;
  }

 private:
  void Fail(const QString& name) {
    if (fault_.isEmpty()) fault_ = name;
  }

  QSettings settings_;
  QString group_, fault_;
};

Lamp ReadLamp(Reader& in) {
  in.Enter(u"lamp"_s);
  return {in.Number("left"),  in.Number("up"),         in.Number("front"), in.Number("ambient"),
          in.Number("gloss"), in.Number("glossPower"), in.Number("rim")};
}

ShadowParameters ReadShadow(Reader& in) {
  in.Enter(u"shadow"_s);
  return {in.Number("right"), in.Number("down"), in.Number("blur"), in.Number("strength"),
          in.Colour("colour")};
}

SidePalette ReadPalette(Reader& in, const QString& side) {
  in.Enter(side);
  return {in.Colour("ink"), in.Colour("shade"), in.Colour("body"),
          in.Colour("lit"), in.Colour("glint"), in.Number("rim")};
}

FallenParameters ReadFallen(Reader& in) {
  in.Enter(u"fallen"_s);
  return {in.Number("turn"), in.Number("scale")};
}

WoodParameters ReadWood(Reader& in, const QString& square) {
  in.Enter(square);
  return {in.Colour("base"),         in.Colour("deep"),  in.Colour("pale"),
          in.Whole("seed"),          in.Number("rings"), in.Number("warp"),
          in.Number("ringStrength"), in.Number("fibre"), in.Number("fibreStrength"),
          in.Number("along"),        in.Number("pores")};
}

}  // namespace

std::optional<SetParameters> ReadSetParameters(const QString& path, QString* error) {
  Reader in(path);
  SetParameters set{};
  in.Enter(u"set"_s);
  set.folder = in.Text("folder");
  set.board = in.Text("board");
  set.cell = in.Whole("cell");
  set.quality = in.Whole("quality");
  set.iconSide = in.Whole("iconSide");
  set.lamp = ReadLamp(in);
  set.shadow = ReadShadow(in);
  set.white = ReadPalette(in, u"white"_s);
  set.black = ReadPalette(in, u"black"_s);
  set.fallen = ReadFallen(in);
  set.light = ReadWood(in, u"light"_s);
  set.dark = ReadWood(in, u"dark"_s);
  if (in.FirstFault().isEmpty()) return set;
  *error = u"%1: no usable value for %2"_s.arg(path, in.FirstFault());
  return std::nullopt;
}

}  // namespace art
