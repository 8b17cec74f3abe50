// SPDX-License-Identifier: GPL-3.0-or-later
// Why a way of mail fails, as far as it matters to what is done about it. What a failure says is a
// sentence for the user. Any other exception is trouble that may pass by itself.
#pragma once

#include "platform/mail_client.h"

namespace post {

/// Only the user can mend it: the account isn't right as it is.
struct AccountRefused : platform::MailError {
  using MailError::MailError;
};

/// The server knows the user not, or not with this password.
struct LoginRefused : AccountRefused {
  using AccountRefused::AccountRefused;
};

/// The provider takes the sign-in no more: the user has to sign in anew.
struct SignInLapsed : AccountRefused {
  using AccountRefused::AccountRefused;
};

struct CertificateRefused : AccountRefused {
  using AccountRefused::AccountRefused;
};

/// The connection is gone, or nobody answers on it: others would fare no better just now.
struct ConnectionLost : platform::MailError {
  using MailError::MailError;
};

/// The whole mail went out, but nobody said that it was taken.
struct PerhapsSent : ConnectionLost {
  using ConnectionLost::ConnectionLost;
};

/// This mail isn't taken, and never will be.
struct MailRefused : platform::MailError {
  using MailError::MailError;
};

}  // namespace post
