// SPDX-License-Identifier: GPL-3.0-or-later
// The moves of a game and what was tried beside it, as a book of chess prints them: the game in
// lines of text, and below a move what else was thought of there, indented. A click goes to a move.
#pragma once

#include <QTextBrowser>

#include "study/variation_tree.h"

namespace ui {

class LinesView : public QTextBrowser {
  Q_OBJECT

 public:
  /// The tree must be there as long.
  LinesView(const study::VariationTree& tree, QWidget* parent);

  /// Shows the tree as it is now, and where its cursor is.
  void Refresh();

  QSize sizeHint() const override { return {300, 200}; }

 Q_SIGNALS:
  void Chosen(study::VariationTree::Node node);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  using Node = study::VariationTree::Node;
  QString MoveHtml(Node node, bool numbered) const;
  QString LineHtml(Node node, bool numbered) const;
  QString BlocksHtml(Node node) const;
  QString TreeHtml() const;

  const study::VariationTree& tree_;
};

/// The number in front of a move, such as "12." and "12...".
QString NumberBefore(const study::VariationTree& tree, study::VariationTree::Node node);

}  // namespace ui
