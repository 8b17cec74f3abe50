// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin_parameters.h"

#include "parameter_file.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

MaterialParameters ReadMaterial(ParameterFile& in, const QString& group) {
  in.Enter(group);
  return {in.Colour("base"),          in.Colour("deep"),         in.Colour("pale"),
          in.Whole("seed"),           in.Number("ringWidth"),    in.Number("ringStrength"),
          in.Number("ringBend"),      in.Number("fibreWidth"),   in.Number("fibreLength"),
          in.Number("fibreStrength"), in.Number("poreStrength"), in.Number("cellWidth"),
          in.Number("cellStrength"),  in.Number("cloudWidth"),   in.Number("cloudStrength")};
}

SkinLamp ReadLamp(ParameterFile& in) {
  in.Enter(u"lamp"_s);
  return {in.Number("near"),  in.Number("far"),           in.Colour("light"),
          in.Colour("shade"), in.Number("lightStrength"), in.Number("shadeStrength")};
}

SkinEdges ReadEdges(ParameterFile& in) {
  in.Enter(u"edges"_s);
  return {in.Number("rim"),           in.Number("round"), in.Number("panelRadius"),
          in.Number("wellRadius"),    in.Number("bevel"), in.Number("shadowReach"),
          in.Number("shadowStrength")};
}

SkinLine ReadLine(ParameterFile& in) {
  in.Enter(u"line"_s);
  return {in.Colour("shade"), in.Colour("body"),  in.Colour("lit"),     in.Number("at"),
          in.Number("width"), in.Number("frame"), in.Number("tooling"), in.Number("glow")};
}

SkinButtons ReadButtons(ParameterFile& in) {
  in.Enter(u"buttons"_s);
  return {in.Colour("face"),   in.Colour("lit"), in.Colour("shade"),      in.Colour("border"),
          in.Colour("accent"), in.Colour("ink"), in.Colour("glyphAccent")};
}

void ReadColours(ParameterFile& in, SkinParameters& skin) {
  in.Enter(u"text"_s);
  skin.text = {in.Colour("text"), in.Colour("title"), in.Colour("link")};
  in.Enter(u"field"_s);
  skin.field = {in.Colour("back"), in.Colour("fore")};
  in.Enter(u"paper"_s);
  skin.paper = {in.Colour("back"), in.Colour("fore"), in.Colour("link")};
  in.Enter(u"grid"_s);
  skin.grid = {in.Colour("backFixed"), in.Colour("foreFixed"),    in.Colour("back"),
               in.Colour("fore"),      in.Colour("backSelected"), in.Colour("foreSelected")};
  in.Enter(u"page"_s);
  skin.page = in.Colour("back");
}

}  // namespace

std::optional<SkinParameters> ReadSkinParameters(const QString& path, QString* error) {
  ParameterFile in(path);
  SkinParameters skin{};
  in.Enter(u"skin"_s);
  skin.folder = in.Text("folder");
  skin.quality = in.Whole("quality");
  skin.titleFonts = in.List("titleFonts");
  skin.lamp = ReadLamp(in);
  skin.edges = ReadEdges(in);
  skin.line = ReadLine(in);
  skin.body = ReadMaterial(in, u"body"_s);
  skin.rim = ReadMaterial(in, u"rim"_s);
  skin.frame = ReadMaterial(in, u"frame"_s);
  skin.panel = ReadMaterial(in, u"panel"_s);
  skin.inlay = ReadMaterial(in, u"inlay"_s);
  skin.buttons = ReadButtons(in);
  ReadColours(in, skin);
  if (!in.AllRead(error)) return std::nullopt;
  return skin;
}

}  // namespace art
