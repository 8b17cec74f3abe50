// SPDX-License-Identifier: GPL-3.0-or-later
// The MIME library as the mail texts use it: made ready, its failures turned into ours, and what it
// hands out turned into UTF-8.
#pragma once

#include <vmime/vmime.hpp>

#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/mail_client.h"

namespace letters {

inline const vmime::charset utf8(vmime::charsets::UTF_8);

/// The library must know its platform before anything else is asked of it.
void PrepareMailLibrary();

/// The answer of `work`. What the library raises says nothing to those who don't know it, and some
/// damaged mails lead it out of its own bounds, which the standard library notices: both become a
/// MailError.
template <typename Work>
auto RaisingMailErrors(const Work& work) {
  PrepareMailLibrary();
  try {
    return work();
  } catch (const vmime::exception& error) {
    throw platform::MailError(error.what());
  } catch (const std::logic_error& error) {
    throw platform::MailError(error.what());
  }
}

/// The value of a header's first field of that name; null where there is none.
template <typename Value>
std::shared_ptr<Value> FieldValue(const vmime::header& header, const char* name) {
  const auto field = header.findField(name);
  return field ? field->getValue<Value>() : nullptr;
}

/// Valid UTF-8, whatever the bytes are. Many programs send others than they say, or say nothing,
/// and a footer may differ from the text ahead of it: each line that makes no sense as declared is
/// taken for windows-1252, which is also what those send who say Latin-1.
std::string ToUtf8(const std::string& bytes, const vmime::charset& declared);

std::string ToUtf8(const vmime::text& text);

/// `bytes` as they travel in an encoding, in lines that fit a mail.
std::string Encoded(const std::string& bytes, const vmime::encoding& encoding);

}  // namespace letters
