// SPDX-License-Identifier: GPL-3.0-or-later
// Folders of pictures, one for each chess set and each skin. Those that the user adds lie in a
// folder of his, in the same way as those that came with the program, and step before one of their
// name.
#pragma once

#include <QString>
#include <QStringList>

namespace desktop {

inline constexpr const char* chessSets = "Graphics/";
inline constexpr const char* skins = "UI Graphics/";

/// The names of all of a kind, sorted. Raises std::runtime_error where the program's can't be read.
QStringList PictureFolders(const char* kind);

/// Where the one of that name lies, or would lie. Ends in "/".
QString PictureFolder(const char* kind, const QString& name);

}  // namespace desktop
