// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/painted_pages.h"

#include <QLocale>
#include <QPagedPaintDevice>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/harmless_text.h"

namespace desktop {

using namespace Qt::StringLiterals;
using platform::PrintedLine;
using platform::PrintedText;
using platform::PrinterFont;

namespace {

constexpr double pointsPerInch = 72;
constexpr double marginPoints = 28;
constexpr double cardMarginPoints = 20;

bool IsDiagram(const PrinterFont& font) { return font.FontName == platform::diagramFont; }

/// The letters of a diagram are the project's own; all else may be somebody's name.
QString Readable(const PrintedText& text) {
  if (IsDiagram(text.font)) return QString::fromStdString(text.text);
  return QString::fromStdString(platform::Harmless(text.text, platform::LineEnds::Blanks));
}

QTextOption OptionsFor(const PrintedLine& line) {
  const bool isDiagram = !line.empty() && IsDiagram(line.front().font);
  QTextOption options;
  options.setUseDesignMetrics(true);
  options.setTextDirection(isDiagram ? Qt::LeftToRight : Qt::LayoutDirectionAuto);
  options.setWrapMode(isDiagram ? QTextOption::NoWrap : QTextOption::WrapAtWordBoundaryOrAnywhere);
  return options;
}

/// The squares of a diagram touch: its lines are as high as its letters.
double RowHeight(const PrintedLine& line, const QFont& font, const QTextLine& row) {
  const bool isDiagram = !line.empty() && IsDiagram(line.front().font);
  return isDiagram ? font.pixelSize() : row.height();
}

}  // namespace

PaintedPages::PaintedPages(QPagedPaintDevice& device, const QString& diagramFamily)
    : device_(device),
      diagramFamily_(diagramFamily),
      painter_(&device),
      pixelsPerPoint_(device.logicalDpiX() / pointsPerInch),
      page_(device.pageLayout().paintRectPixels(device.logicalDpiX()).size()),
      isWell_(painter_.isActive()) {}

QFont PaintedPages::FontOf(const PrinterFont& font) const {
  QFont result(IsDiagram(font) ? diagramFamily_ : QString::fromStdString(font.FontName));
  result.setPixelSize(std::max(1, qRound(font.FontSize * pixelsPerPoint_)));
  result.setBold(font.FontBold);
  result.setHintingPreference(QFont::PreferNoHinting);
  if (font.FontName.starts_with("Courier")) result.setStyleHint(QFont::Monospace);
  return result;
}

std::unique_ptr<QTextLayout> PaintedPages::LaidOut(const PrintedLine& line) const {
  QString text;
  QList<QTextLayout::FormatRange> formats;
  for (const PrintedText& part : line) {
    const QString readable = Readable(part);
    QTextCharFormat format;
    format.setFont(FontOf(part.font));
    formats.append({int(text.size()), int(readable.size()), format});
    text += readable;
  }
  const QFont font = line.empty() ? QFont() : FontOf(line.front().font);
  auto layout = std::make_unique<QTextLayout>(text, font, &device_);
  layout->setFormats(formats);
  layout->setTextOption(OptionsFor(line));
  layout->beginLayout();
  for (QTextLine row = layout->createLine(); row.isValid(); row = layout->createLine()) {
    row.setLineWidth(page_.width());
  }
  layout->endLayout();
  return layout;
}

void PaintedPages::Print(const PrintedLine& line) {
  const auto layout = LaidOut(line);
  for (int n = 0; n < layout->lineCount(); ++n) {
    const QTextLine row = layout->lineAt(n);
    const double height = RowHeight(line, layout->font(), row);
    if (down_ > 0 && down_ + height > page_.height()) NewPage();
    row.draw(&painter_, {0, down_ - row.y()});
    down_ += height;
  }
}

void PaintedPages::NewPage() {
  isWell_ = device_.newPage() && isWell_;
  ++pages_;
  down_ = 0;
}

void PaintedPages::EndDoc() { isWell_ = painter_.end() && isWell_; }

double PaintedPages::WidthOf(const PrintedText& text) const {
  return QFontMetricsF(FontOf(text.font), &device_).horizontalAdvance(Readable(text));
}

double PaintedPages::FittingSize(const PrintedLine& line) {
  double room = page_.width();
  for (const PrintedText& text : line) room -= WidthOf(text);
  const PrinterFont& font = line.back().font;
  if (room >= 0) return font.FontSize;
  const double width = WidthOf(line.back());
  const double size = font.FontSize * std::max(0.0, room + width) / width;
  return std::floor(size * pixelsPerPoint_) / pixelsPerPoint_;  // letters are whole pixels high
}

double PaintedPages::HeightOf(const PrintedLine& line) const {
  const auto layout = LaidOut(line);
  double height = 0;
  for (int n = 0; n < layout->lineCount(); ++n) {
    height += RowHeight(line, layout->font(), layout->lineAt(n));
  }
  return height;
}

bool PaintedPages::HasRoomFor(const std::vector<PrintedLine>& lines) {
  const double height =
      std::accumulate(lines.begin(), lines.end(), 0.0,
                      [this](double sum, const PrintedLine& line) { return sum + HeightOf(line); });
  return down_ == 0 || down_ + height <= page_.height();
}

QPageLayout LayoutFor(platform::Paper paper, const QPageLayout& usual) {
  const auto layout = [](const QPageSize& size, QPageLayout::Orientation orientation, double all) {
    return QPageLayout(size, orientation, QMarginsF(all, all, all, all), QPageLayout::Point);
  };
  if (paper == platform::Paper::Postcard) {
    return layout(QPageSize(QPageSize::A6), QPageLayout::Landscape, cardMarginPoints);
  }
  return layout(usual.pageSize(), usual.orientation(), marginPoints);
}

QPageLayout LayoutFor(platform::Paper paper) {
  const bool usesLetter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
  const QPageSize size(usesLetter ? QPageSize::Letter : QPageSize::A4);
  return LayoutFor(paper, QPageLayout(size, QPageLayout::Portrait, {}));
}

}  // namespace desktop
