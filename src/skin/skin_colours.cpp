// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/skin_colours.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "skin/skin_style.h"
#include "widgets/contrast.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

void UsePaletteOnly(QWidget& control) {
  control.setStyle(TheSkinStyle());
  for (QWidget* part : control.findChildren<QWidget*>()) part->setStyle(TheSkinStyle());
}

/// No wider than it must be, and without anything of the desktop's own look.
void ColourScrollBars(QWidget& control, const QColor& backColor, const QColor& foreColor) {
  auto* area = qobject_cast<QAbstractScrollArea*>(&control);
  if (!area) return;
  const QString handle =
      u"rgba(%1, %2, %3, 60%)"_s.arg(foreColor.red()).arg(foreColor.green()).arg(foreColor.blue());
  const QString sheet =
      u"QScrollBar { background: %2; } QScrollBar:vertical { width: 10px; } "
      u"QScrollBar:horizontal { height: 10px; } "
      u"QScrollBar::handle { background: %1; border-radius: 3px; "
      u"min-height: 24px; min-width: 24px; margin: 2px; } "
      u"QScrollBar::add-line, QScrollBar::sub-line { height: 0; width: 0; } "
      u"QScrollBar::add-page, QScrollBar::sub-page { background: none; }"_s;
  for (QScrollBar* bar : {area->verticalScrollBar(), area->horizontalScrollBar()}) {
    bar->setStyleSheet(sheet.arg(handle, backColor.name(QColor::HexArgb)));
  }
}

QPalette PaletteOf(const QColor& back, const QColor& fore, const QColor& backSelected,
                   const QColor& foreSelected) {
  // Drop-down buttons are made of these two.
  QPalette palette(Between(back, Between(back, fore)), back);
  for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::Window}) {
    palette.setColor(role, back);
  }
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(role, fore);
    palette.setColor(QPalette::Disabled, role, LegiblyFaint(fore, back));
  }
  palette.setColor(QPalette::PlaceholderText, LegiblyFaint(fore, back));
  palette.setColor(QPalette::Highlight, backSelected);
  palette.setColor(QPalette::HighlightedText, foreSelected);
  return palette;
}

}  // namespace

QColor Between(const QColor& one, const QColor& other) {
  return QColor((one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
                (one.blue() + other.blue()) / 2);
}

QPalette GridPalette(const GridColours& colours) {
  return PaletteOf(colours.BackColor, colours.ForeColor, colours.BackColorSel,
                   colours.ForeColorSel);
}

void ColourText(QWidget& control, const QColor& foreColor) {
  QPalette palette = control.palette();
  palette.setColor(QPalette::Text, foreColor);
  palette.setColor(QPalette::WindowText, foreColor);
  palette.setColor(QPalette::Base, Qt::transparent);
  control.setPalette(palette);
  control.setAutoFillBackground(false);
  ColourScrollBars(control, Qt::transparent, foreColor);
}

void ColourField(QWidget& control, const FieldColours& colours) {
  auto* combo = qobject_cast<QComboBox*>(&control);
  QWidget* list = combo ? combo->view() : nullptr;  // is made here, to be coloured too
  UsePaletteOnly(control);
  control.setPalette(
      PaletteOf(colours.BackColor, colours.ForeColor, colours.ForeColor, colours.BackColor));
  ColourScrollBars(control, colours.BackColor, colours.ForeColor);
  if (list) ColourScrollBars(*list, colours.BackColor, colours.ForeColor);
}

void ColourGrid(QWidget& control, const GridColours& colours) {
  UsePaletteOnly(control);
  control.setPalette(GridPalette(colours));
  ColourScrollBars(control, colours.BackColor, colours.ForeColor);
  const auto* table = qobject_cast<QTableView*>(&control);
  if (!table) return;
  // A style would shade the heading.
  table->horizontalHeader()->setStyleSheet(
      u"QHeaderView { background: %1; } "
      u"QHeaderView::section { background: %1; color: %2; border: none; padding: 4px; }"_s.arg(
          colours.BackColorFixed.name(), colours.ForeColorFixed.name()));
}

void ColourPage(QWidget& page, const QColor& backColor) {
  QPalette palette = page.palette();
  palette.setColor(QPalette::Window, backColor);
  page.setPalette(palette);
  page.setAutoFillBackground(true);
}

}  // namespace ui
