// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to paper. What is printed is lines of text in fonts, page after page; where the lines
// come from is no business of the printer's, nor is the size of its paper theirs. The classes
// themselves are those of a program that can't print.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace platform {

struct PrinterFont {
  std::string FontName;
  double FontSize = 12;  ///< points
  bool FontBold = false;
};

/// The font for diagrams. Its letters are squares, so its lines have no space between them; a
/// printer may have another font with the same letters for it.
inline const std::string diagramFont = "Chess Utrecht";

/// A piece of a line in one font.
struct PrintedText {
  PrinterFont font;
  std::string text;
};

/// What stands beside each other.
using PrintedLine = std::vector<PrintedText>;

/// The printer while a document is on it.
class Printer {
 public:
  virtual ~Printer() = default;

  /// One line, below the last. What is wider than the paper goes on in the next line, and what is
  /// below it on the next page.
  virtual void Print(const PrintedLine& line) = 0;

  virtual void NewPage() = 0;

  /// The document is complete.
  virtual void EndDoc() = 0;

  /// The largest size of a line's last text, up to its own, at which the line fits the paper.
  virtual double FittingSize(const PrintedLine& line) = 0;

  /// Whether all of these find room below each other on this page, or the page is still blank.
  virtual bool HasRoomFor(const std::vector<PrintedLine>& lines) = 0;
};

enum class Paper { OfPrinter, Postcard };

/// One print: it may be written several times, to look at first and then on paper.
struct Document {
  std::string title;
  bool hasDiagrams = true;
  Paper paper = Paper::OfPrinter;
  std::function<void(Printer& printer)> write;
};

/// What the user is asked before something is printed.
struct PrintQuestion {
  int columns = 4;
  int rows = 4;
  int mostRows = 20;
  bool numbersAreFixed = false;  ///< they are shown only; where they are 0, not even that
  std::string instructions = "4 columns by 4 rows will just fit on an A4 page.";

  /// What would be printed; nothing where there is none, of which the user may have been told.
  std::function<std::optional<Document>(int columns, int rows)> document;
};

struct PrintChoice {
  int columns = 0;
  int rows = 0;
};

struct PrintOutcome {
  bool isDone = true;
  std::string why;  ///< as a sentence, where it isn't; empty where nobody knows
};

/// The printers of the desktop, of which one is in force.
class Printers {
 public:
  virtual ~Printers() = default;

  /// The printer dialog, modal. Nothing where the user cancelled.
  virtual std::optional<PrintChoice> SelectPrinter(const PrintQuestion& /*question*/) { return {}; }

  /// Prints on the printer in force, and waits until it has all.
  virtual PrintOutcome Send(const Document& /*document*/) {
    return {false, "There is no printer here."};
  }
};

}  // namespace platform
