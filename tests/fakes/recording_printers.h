// SPDX-License-Identifier: GPL-3.0-or-later
// Paper that remembers what was written on it, and printers whose dialog is answered in advance.
#pragma once

#include <algorithm>
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
  void EndDoc() override {}
  double FittingSize(const platform::PrintedLine& line) override {
    const auto letters = static_cast<double>(TextOf(line).size());
    return line.back().font.FontSize * std::min(1.0, lettersWide / letters);
  }
  bool HasRoomFor(const std::vector<platform::PrintedLine>& lines) override {
    return pages.back().empty() || pages.back().size() + lines.size() <= linesHigh;
  }

  static std::string TextOf(const platform::PrintedLine& line) {
    std::string text;
    for (const platform::PrintedText& part : line) text += part.text;
    return text;
  }

  /// A page as text, or its lines in one font.
  std::string Page(std::size_t number, const std::string& fontName = {}) const {
    std::string text;
    for (const platform::PrintedLine& line : pages.at(number - 1)) {
      if (fontName.empty() || line.front().font.FontName == fontName) text += TextOf(line) + "\n";
    }
    return text;
  }

  std::vector<std::vector<platform::PrintedLine>> pages{1};
  double lettersWide = 100000;
  std::size_t linesHigh = 100000;
};

class RecordingPrinters : public platform::Printers {
 public:
  std::optional<platform::PrintChoice> SelectPrinter(
      const platform::PrintQuestion& question) override {
    ++asked;
    return cancels ? std::nullopt
                   : std::optional(platform::PrintChoice{question.columns, question.rows});
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
