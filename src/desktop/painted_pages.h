// SPDX-License-Identifier: GPL-3.0-or-later
// A printer whose pages are painted: on paper, into a PDF file, or for a look at them first.
#pragma once

#include <QPageLayout>
#include <QPainter>
#include <QTextLayout>

#include <memory>

#include "platform/printing.h"

class QPagedPaintDevice;

namespace desktop {

class PaintedPages : public platform::Printer {
 public:
  /// The device must outlive this and have its paper already. `diagramFamily` is the font that
  /// prints diagrams.
  PaintedPages(QPagedPaintDevice& device, const QString& diagramFamily);

  /// False where the device takes no pages at all, or took no further one.
  bool IsWell() const { return isWell_; }
  int Pages() const { return pages_; }

  void Print(const platform::PrintedLine& line) override;
  void NewPage() override;
  void EndDoc() override;
  double FittingSize(const platform::PrintedLine& line) override;
  bool HasRoomFor(const std::vector<platform::PrintedLine>& lines) override;

 private:
  QFont FontOf(const platform::PrinterFont& font) const;
  double WidthOf(const platform::PrintedText& text) const;
  std::unique_ptr<QTextLayout> LaidOut(const platform::PrintedLine& line) const;
  double HeightOf(const platform::PrintedLine& line) const;

  QPagedPaintDevice& device_;
  const QString diagramFamily_;
  QPainter painter_;
  double pixelsPerPoint_;
  QSizeF page_;      // in the device's pixels
  double down_ = 0;  // where the next line begins
  bool isWell_;
  int pages_ = 1;
};

/// The paper that is usual in the user's country, or that the document wants, with its margins.
QPageLayout LayoutFor(platform::Paper paper);

/// The same for a printer that has a usual paper of its own.
QPageLayout LayoutFor(platform::Paper paper, const QPageLayout& usual);

}  // namespace desktop
