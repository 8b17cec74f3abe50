// SPDX-License-Identifier: GPL-3.0-or-later
// A picture file that somebody else made: missing, unreadable and absurdly large ones are refused.
#pragma once

#include <QFile>
#include <QImage>
#include <QImageReader>

#include <stdexcept>
#include <string>

namespace desktop {

/// A picture that can't be read; the text is its path.
struct PictureError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class PictureFile {
 public:
  /// Raises PictureError. The format is known by the content, whatever the file is called.
  explicit PictureFile(const std::string& path);

  QImageReader& Reader() { return reader_; }

 private:
  QFile file_;
  QImageReader reader_;
};

/// The file's first picture; raises PictureError.
QImage ReadPicture(const std::string& path);

}  // namespace desktop
