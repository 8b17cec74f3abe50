// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/dialog_colours.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTabBar>
#include <QTextBrowser>
#include <QToolButton>

#include "skin/skin_style.h"

namespace ui {

namespace {

/// What is written on the bare surface, and the marks of what is chosen.
QPalette SurfacePalette(const DialogColours& colours) {
  QPalette palette(colours.ground.lighter(140), colours.ground);
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::BrightText}) {
    palette.setColor(role, colours.text);
    palette.setColor(QPalette::Disabled, role,
                     Between(colours.text, Between(colours.text, colours.ground)));
  }
  palette.setColor(QPalette::Base, colours.field.BackColor);
  palette.setColor(QPalette::AlternateBase, colours.field.BackColor);
  palette.setColor(QPalette::Text, colours.field.ForeColor);
  palette.setColor(QPalette::Highlight, colours.list.BackColorSel);
  palette.setColor(QPalette::HighlightedText, colours.list.ForeColorSel);
  return palette;
}

void GiveField(QWidget& control, const DialogColours& colours) {
  ColourField(control, colours.field);
}

void GivePage(QWidget& control, const DialogColours& colours) {
  ColourField(control, colours.page);
  QPalette palette = control.palette();
  palette.setColor(QPalette::Link, colours.link);
  palette.setColor(QPalette::LinkVisited, colours.link);
  palette.setColor(QPalette::Highlight, colours.list.BackColorSel);
  palette.setColor(QPalette::HighlightedText, colours.list.ForeColorSel);
  control.setPalette(palette);
}

void GiveList(QWidget& control, const DialogColours& colours) { ColourGrid(control, colours.list); }

/// A large button that is a card of the list.
void GiveCard(QWidget& control, const DialogColours& colours) {
  const GridColours& list = colours.list;
  QPalette palette(list.BackColor);
  palette.setColor(QPalette::Base, list.BackColor);
  palette.setColor(QPalette::AlternateBase, Between(list.BackColor, list.BackColorFixed));
  palette.setColor(QPalette::Mid, Between(list.BackColor, list.ForeColor));
  palette.setColor(QPalette::Highlight, list.BackColorSel);
  for (const auto role : {QPalette::ButtonText, QPalette::WindowText, QPalette::Text}) {
    palette.setColor(role, list.ForeColor);
  }
  control.setPalette(palette);
  control.setStyleSheet({});  // the plain look's
}

/// The surface shows through it.
void MakeTransparent(QWidget& control, const DialogColours&) {
  auto& area = static_cast<QScrollArea&>(control);
  area.viewport()->setAutoFillBackground(false);
  if (area.widget()) area.widget()->setAutoFillBackground(false);
}

template <typename Control>
bool IsA(const QWidget& control) {
  return qobject_cast<const Control*>(&control);
}

/// The first row that fits decides. What has none is written on the surface.
constexpr struct {
  bool (*isMeant)(const QWidget&);
  void (*give)(QWidget&, const DialogColours&);
} rows[] = {
    {IsA<QLineEdit>, GiveField},         {IsA<QAbstractSpinBox>, GiveField},
    {IsA<QComboBox>, GiveField},         {IsA<QPlainTextEdit>, GiveField},
    {IsA<QTextBrowser>, GivePage},       {IsA<QAbstractItemView>, GiveList},
    {IsA<QCommandLinkButton>, GiveCard}, {IsA<QScrollArea>, MakeTransparent},
};

void ColourPart(QWidget& part, const DialogColours& colours) {
  part.setStyle(TheSkinStyle());
  for (const auto& row : rows) {
    if (row.isMeant(part)) return row.give(part, colours);
  }
}

}  // namespace

void ColourDialog(QWidget& dialog, const DialogColours& colours) {
  dialog.setPalette(SurfacePalette(colours));
  for (QWidget* part : dialog.findChildren<QWidget*>()) {
    // Dialogs upon it have their own, and the parts of a field got theirs with it.
    if (part->window() == &dialog) ColourPart(*part, colours);
  }
}

}  // namespace ui
