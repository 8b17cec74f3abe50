// SPDX-License-Identifier: GPL-3.0-or-later
#include "piece_drawing.h"

#include <QFile>
#include <QPainter>
#include <QPointF>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <algorithm>
#include <vector>

namespace art {

using namespace Qt::StringLiterals;

namespace {

// The paints of one rendering.
struct Paints {
  QString turned, carved, raised, ink, line, glint;
};

// A straight step has one point, a curve three; the last one is where the step ends.
struct Step {
  std::vector<QPointF> points;
};

QString PointText(QPointF p) { return u"%1,%2 "_s.arg(p.x()).arg(p.y()); }

QString StepText(const Step& step) {
  QString text = step.points.size() == 3 ? u"C"_s : u"L"_s;
  for (const QPointF& p : step.points) text += PointText(p);
  return text;
}

// The same step walked the other way on the other side; `from` is where it began.
Step MirroredBack(const Step& step, QPointF from) {
  std::vector<QPointF> points(step.points.rbegin() + 1, step.points.rend());
  points.push_back(from);
  for (QPointF& p : points) p.setX(-p.x());
  return {points};
}

std::vector<Step> ReadSteps(const QString& half) {
  static const QRegularExpression command(u"([MLC])([^MLC]*)"_s);
  static const QRegularExpression number(u"-?\\d+(\\.\\d+)?"_s);
  std::vector<Step> steps;
  for (const QRegularExpressionMatch& match : command.globalMatch(half)) {
    std::vector<double> numbers;
    for (const QRegularExpressionMatch& n : number.globalMatch(match.captured(2))) {
      numbers.push_back(n.captured().toDouble());
    }
    const size_t expected = match.captured(1) == u"C"_s ? 6 : 2;
    if (numbers.size() != expected) return {};
    Step step;
    for (size_t i = 0; i < expected; i += 2) step.points.emplace_back(numbers[i], numbers[i + 1]);
    steps.push_back(step);
  }
  return steps;
}

bool OnAxis(const Step& step) { return qFuzzyIsNull(step.points.back().x()); }

std::optional<QString> WithOutlinesClosed(QString document) {
  static const QRegularExpression mirror(u"\\{mirror\\s+([^}]*)\\}"_s);
  for (auto match = mirror.match(document); match.hasMatch(); match = mirror.match(document)) {
    const QString whole = MirroredPath(match.captured(1));
    if (whole.isEmpty()) return std::nullopt;
    document.replace(match.capturedStart(), match.capturedLength(), whole);
  }
  return document;
}

QString Drawn(QString document, const Lines& lines) {
  return document.replace(u"{outline}"_s, QString::number(lines.outline))
      .replace(u"{inner}"_s, QString::number(lines.inner))
      .replace(u"{strength}"_s, QString::number(lines.strength));
}

QString Painted(QString document, const Paints& paints) {
  return document.replace(u"{turned}"_s, paints.turned)
      .replace(u"{carved}"_s, paints.carved)
      .replace(u"{raised}"_s, paints.raised)
      .replace(u"{ink}"_s, paints.ink)
      .replace(u"{line}"_s, paints.line)
      .replace(u"{glint}"_s, paints.glint);
}

QImage Rendered(const QString& document, int side) {
  QSvgRenderer renderer(document.toUtf8());
  if (!renderer.isValid()) return {};
  QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  renderer.render(&painter);
  return picture;
}

}  // namespace

QString MirroredPath(const QString& half) {
  const std::vector<Step> steps = ReadSteps(half);
  if (steps.size() < 2 || !OnAxis(steps.front()) || !OnAxis(steps.back())) return {};
  QString path = u"M"_s + PointText(steps.front().points.back());
  for (size_t i = 1; i < steps.size(); ++i) path += StepText(steps[i]);
  for (size_t i = steps.size() - 1; i > 0; --i) {
    path += StepText(MirroredBack(steps[i], steps[i - 1].points.back()));
  }
  return path + u'Z';
}

std::optional<PieceDrawing> ReadPieceDrawing(const QString& path, const Lines& lines, int side,
                                             QString* error) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    *error = u"%1: %2"_s.arg(path, file.errorString());
    return std::nullopt;
  }
  const std::optional<QString> document = WithOutlinesClosed(QString::fromUtf8(file.readAll()));
  if (!document) {
    *error = u"%1: a mirrored outline doesn't run from axis to axis"_s.arg(path);
    return std::nullopt;
  }
  const QString none = u"none"_s, full = u"#ffffff"_s, hides = u"#000000"_s;
  auto layer = [side](const QString& drawn, const Paints& paints) {
    return Rendered(Painted(drawn, paints), side);
  };
  const QString drawn = Drawn(*document, lines);
  // Later parts hide the lines of earlier ones, so the fills are drawn too, in no line's colour.
  const QImage inked =
      layer(drawn, {hides, hides, hides, u"#ff0000"_s, u"#0000ff"_s, u"#00ff00"_s});
  if (inked.isNull()) {
    *error = u"%1: not a drawing"_s.arg(path);
    return std::nullopt;
  }
  PieceDrawing drawing{
      ChannelOf(layer(drawn, {full, none, none, none, none, none}), Channel::Alpha),
      ChannelOf(layer(drawn, {none, full, none, none, none, none}), Channel::Alpha),
      ChannelOf(layer(drawn, {none, none, full, none, none, none}), Channel::Alpha),
      ChannelOf(inked, Channel::Red),
      ChannelOf(inked, Channel::Blue),
      ChannelOf(inked, Channel::Green),
      ChannelOf(inked, Channel::Alpha),
      Plane(side),
  };
  if (lines.halo > 0) {
    Lines grown = lines;
    grown.outline += 2 * lines.halo;
    const QImage halo = layer(Drawn(*document, grown), {full, full, full, full, full, none});
    drawing.halo = ChannelOf(halo, Channel::Alpha);
  }
  return drawing;
}

}  // namespace art
