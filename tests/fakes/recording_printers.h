// SPDX-License-Identifier: GPL-3.0-or-later
// Paper that remembers what was written on it, and printers whose dialog is answered in advance.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/printing.h"

namespace fakes {

/// The letters of every font are as wide as high, and there is no limit until the test sets one.
class RecordingPrinter : public platform::Printer {
 public:
  void Print(const platform::PrintedLine& line) override { pages.back().push_back(line); }
  void NewPage() override { pages.emplace_back(); }
  void EndDoc() override { ++documents; }
  double FittingSize(const platform::PrintedLine& line) override {
    std::size_t letters = 0;
    for (const platform::PrintedText& text : line) letters += text.text.size();
    const double size = line.back().font.FontSize;
    return letters <= lettersWide
               ? size
               : size * static_cast<double>(lettersWide) / static_cast<double>(letters);
  }
  bool HasRoomFor(const std::vector<platform::PrintedLine>& lines) override {
    return pages.back().empty() || pages.back().size() + lines.size() <= linesHigh;
  }

  static std::string TextOf(const platform::PrintedLine& line) {
    std::string text;
    for (const platform::PrintedText& part : line) text += part.text;
    return text;
  }

  /// A page as text, or only its lines in one font.
  std::string Page(std::size_t number, const std::string& fontName = {}) const {
    std::string text;
    for (const platform::PrintedLine& line : pages.at(number - 1)) {
      if (fontName.empty() || line.front().font.FontName == fontName) text += TextOf(line) + "\n";
    }
    return text;
  }

  std::vector<std::vector<platform::PrintedLine>> pages{1};
  std::size_t lettersWide = 100000;
  std::size_t linesHigh = 100000;
  int documents = 0;
};

class RecordingPrinters : public platform::Printers {
 public:
  std::optional<platform::PrintChoice> SelectPrinter(
      const platform::PrintQuestion& question) override {
    ++asked;
    if (cancels) return std::nullopt;
    return platform::PrintChoice{question.columns, question.rows};
  }
  platform::PrintOutcome Send(const platform::Document& document) override {
    sent.push_back(document.title);
    return outcome;
  }

  bool cancels = false;
  platform::PrintOutcome outcome;
  int asked = 0;
  std::vector<std::string> sent;
};

}  // namespace fakes
