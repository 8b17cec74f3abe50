// SPDX-License-Identifier: GPL-3.0-or-later
// One mail as the bytes that travel, and as the program sees it. Whatever comes from outside is
// read as real MIME (any charset, quoted-printable, base64, multipart, HTML) and handed on as
// UTF-8; what goes out is plain text whose names and subject can't become a header of their own.
#pragma once

#include <string>
#include <string_view>

#include "letters/mails.h"

namespace letters {

/// More than this is never read of one mail.
inline constexpr std::size_t greatestMail = 8u << 20;

/// A header beyond this is no header of ours.
inline constexpr std::size_t greatestHeader = 64u << 10;

/// Each control character, each of Unicode's line ends and "|" turned to a blank: such a character
/// would damage a game for good.
std::string WithoutReserved(std::string_view text);

/// Others' words end with a full stop or not.
std::string WithFullStop(std::string text);

/// Whether a text can stand as an address in a header: something, an "@", something, and nothing
/// that has a meaning of its own there.
bool IsMailAddress(std::string_view text);

/// The address as servers are told it: without blanks around it, a domain of another script in
/// ASCII. Raises MailError for what is no address.
std::string EnvelopeAddress(std::string_view address);

/// How a text's lines may travel. Not every server takes bytes above 127.
enum class Lines { EightBit, SevenBit };

/// The mail's bytes, with CR LF line ends. The text stands there as it is where that may be, so
/// that a saved mail reads as the text does, and as quoted-printable elsewhere. Raises MailError
/// for an address that is none.
std::string ComposeMail(const OutgoingMail& mail, Lines lines = Lines::EightBit);

/// The decoded subject of a mail of which at least the header is given; blank where it has none.
/// Raises MailError for what can't be read.
std::string SubjectOf(std::string_view bytes);

/// Whether a mail with this header may be a move mail, or a report on one of ours. False for a
/// header that can't be read.
bool CanBeOurs(std::string_view header);

/// Subject, sender and text of a whole mail; of a report on one of ours what it says. The text
/// keeps the mail's line ends. A mail without a usable sender's address has a blank one and no
/// text: nobody could ever be answered. Raises MailError for what can't be read, for a mail of so
/// many parts that it can only be meant to be expensive, and for any other that a program wrote by
/// itself as an answer.
FetchedMail ParseMail(const std::string& bytes);

}  // namespace letters
