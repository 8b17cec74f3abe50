// SPDX-License-Identifier: GPL-3.0-or-later
// The words in which the players' parts are written. Windows and controls are found by the names
// they have in the program.
#pragma once

#include <QLockFile>
#include <QString>

#include <memory>
#include <string>
#include <vector>

#include "app/program.h"
#include "demo/hands.h"
#include "demo/performance.h"

namespace demo {

class Steps {
 public:
  /// Pictures go to `folder`, where also the lock of the one mouse and keyboard lies.
  Steps(app::Program& program, Hands& hands, const QString& folder);
  ~Steps();
  Steps(const Steps&) = delete;
  Steps& operator=(const Steps&) = delete;

  Spot Control(const char* window, const char* control) const;

  /// By its name (the last one of several) or its caption.
  Spot Entry(const char* menu, const char* entry) const;
  Spot Square(int number) const;
  Spot TrayIcon() const;

  std::function<bool()> IsUp(const char* window) const;
  std::function<bool()> IsGone(const char* window) const;
  std::function<bool()> TipSays(const char* part) const;
  std::function<bool()> BoardSays(const char* part) const;
  std::function<bool()> BoardHasMoves(int count) const;

  Step Click(std::string told, Spot where, std::function<bool()> worked = {}) const;
  Step RightClick(std::string told, Spot where, std::function<bool()> worked) const;
  Step PointAt(std::string told, Spot where, std::function<bool()> worked) const;
  Step Type(std::string told, const char* window, const char* field, const char* text) const;
  Step WaitFor(std::string told, std::function<bool()> condition) const;

  /// By dragging the piece, or by a click on either square.
  Step DragPiece(std::string told, int from, int to) const;
  std::vector<Step> ClickSquares(std::string told, int from, int to) const;

  /// The whole screen, once the window stands there.
  Step Picture(const char* file, const char* window) const;

  /// Two players have one mouse and one keyboard between them. Who has used them waits until the
  /// other one has, too, or has gone.
  Step TakeHands() const;
  Step LetHandsGo() const;

  void SavePicture(const QString& file) const;

 private:
  bool TakeTurn() const;
  void EndTurn() const;

  app::Program& program_;
  Hands& hands_;
  QString folder_;
  std::unique_ptr<QLockFile> lock_;
};

}  // namespace demo
