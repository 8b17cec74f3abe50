// SPDX-License-Identifier: GPL-3.0-or-later
#include "set_parameters.h"

#include "parameter_file.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

Lamp ReadLamp(ParameterFile& in) {
  in.Enter(u"lamp"_s);
  return {in.Number("left"),  in.Number("up"),         in.Number("front"), in.Number("ambient"),
          in.Number("gloss"), in.Number("glossPower"), in.Number("rim")};
}

ShadowParameters ReadShadow(ParameterFile& in) {
  in.Enter(u"shadow"_s);
  return {in.Number("right"), in.Number("down"), in.Number("blur"), in.Number("strength"),
          in.Colour("colour")};
}

Lines ReadLines(ParameterFile& in) {
  in.Enter(u"lines"_s);
  return {in.Number("outline"), in.Number("inner"), in.Number("strength"), in.Number("halo")};
}

SidePalette ReadPalette(ParameterFile& in, const QString& side) {
  in.Enter(side);
  return {in.Colour("halo"), in.Colour("ink"), in.Colour("line"),  in.Colour("shade"),
          in.Colour("body"), in.Colour("lit"), in.Colour("glint"), in.Number("rim")};
}

FallenParameters ReadFallen(ParameterFile& in) {
  in.Enter(u"fallen"_s);
  return {in.Number("turn"), in.Number("scale")};
}

GrainParameters ReadGrain(ParameterFile& in, const QString& square) {
  in.Enter(square);
  return {in.Colour("base"),         in.Colour("deep"),  in.Colour("pale"),
          in.Whole("seed"),          in.Number("rings"), in.Number("warp"),
          in.Number("ringStrength"), in.Number("fibre"), in.Number("fibreStrength"),
          in.Number("along"),        in.Number("pores"), in.Number("edge")};
}

}  // namespace

std::optional<BoardParameters> ReadBoardParameters(const QString& path, QString* error) {
  ParameterFile in(path);
  BoardParameters board{};
  in.Enter(u"board"_s);
  board.name = in.Text("name");
  board.light = ReadGrain(in, u"light"_s);
  board.dark = ReadGrain(in, u"dark"_s);
  if (in.AllRead(error)) return board;
  return std::nullopt;
}

std::optional<SetParameters> ReadSetParameters(const QString& path, QString* error) {
  ParameterFile in(path);
  SetParameters set{};
  in.Enter(u"set"_s);
  set.folder = in.Text("folder");
  set.boards = in.List("boards");
  set.cell = in.Whole("cell");
  set.quality = in.Whole("quality");
  set.iconSide = in.Whole("iconSide");
  set.lines = ReadLines(in);
  set.lamp = ReadLamp(in);
  set.shadow = ReadShadow(in);
  set.white = ReadPalette(in, u"white"_s);
  set.black = ReadPalette(in, u"black"_s);
  set.fallen = ReadFallen(in);
  if (in.AllRead(error)) return set;
  return std::nullopt;
}

}  // namespace art
