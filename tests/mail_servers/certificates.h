// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

/// Makes the certificates of the mail servers in `folder`: the authorities "authority" and "other",
/// and from the first one "good", "expired" and "foreign"; each as a ".pem" and a ".key".
void MakeCertificates(const std::filesystem::path& folder);
