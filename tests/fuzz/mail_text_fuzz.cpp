// SPDX-License-Identifier: GPL-3.0-or-later
// Mails of all kinds: what isn't refused comes as UTF-8 without zero bytes, and arrives as the same
// when it is sent on.
#include <algorithm>

#include "fuzz/fuzz.h"
#include "letters/mail_library.h"
#include "letters/mail_text.h"
#include "letters/text_repair.h"
#include "platform/text_fields.h"

namespace {

void RequireUtf8(const std::string& text) {
  Require(letters::ToUtf8(text, vmime::charset(vmime::charsets::UTF_8)) == text);
}

std::string WithBareLineEnds(const std::string& text) {
  return platform::ReplaceAll(platform::ReplaceAll(text, "\r\n", "\n"), "\r", "\n");
}

bool IsAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](unsigned char c) { return c < 128; });
}

/// An address of other scripts depends on what servers make of it.
bool IsPlainAddress(const std::string& address) {
  return !address.empty() && address.size() < 255 && IsAscii(address) &&
         !address.ends_with(".invalid");
}

void RequireSameWhenSentOn(const letters::FetchedMail& mail, letters::Lines lines) {
  const letters::Mailbox sender{mail.name, mail.address};
  const std::string bytes =
      letters::ComposeMail({sender, {{"", "a@b"}}, mail.subject, mail.text}, lines);
  Require(IsAscii(bytes) || lines == letters::Lines::EightBit);
  const letters::FetchedMail again = letters::ParseMail(bytes);
  Require(again.subject == letters::WithoutReserved(mail.subject));
  Require(again.name == letters::WithoutReserved(mail.name));
  Require(again.address == mail.address);
  // Each time it is read, the program's own part may lose what it has caught on its way.
  Require(letters::HoldsStartMarker(mail.text) ||
          WithBareLineEnds(again.text) == WithBareLineEnds(mail.text));
}

}  // namespace

void TryInput(std::string_view input) {
  letters::CanBeOurs(input);  // answers, whatever it is
  try {
    const letters::FetchedMail mail = letters::ParseMail(std::string(input));
    for (const std::string& text : {mail.subject, mail.name, mail.address, mail.text}) {
      RequireUtf8(text);
    }
    Require(mail.text.find('\0') == std::string::npos);
    if (!IsPlainAddress(mail.address)) return;
    // One of the two is enough at a time: composing takes the longest of all.
    RequireSameWhenSentOn(mail,
                          input.size() % 2 ? letters::Lines::EightBit : letters::Lines::SevenBit);
  } catch (const platform::MailError&) {
    // refused
  }
}
