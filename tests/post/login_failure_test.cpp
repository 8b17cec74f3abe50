// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/servers/login_failure.h"

#include <gtest/gtest.h>

namespace {

using Reason = post::LoginFailure::Reason;

TEST(LoginFailureTest, TheServersOwnAnswerTellsTheReasonAndIsRepeatedReadably) {
  const std::string lengthy = "NO " + std::string(158, 'x');
  const struct {
    int code;
    std::string reply;
    Reason reason;
    std::string words;
  } rows[] = {
      {0, "NO [AUTHENTICATIONFAILED] Wrong; too many will lock it.", Reason::WrongLogin,
       "Wrong; too many will lock it."},
      {0, "no", Reason::WrongLogin, ""},
      {0, "BAD [ALERT", Reason::WrongLogin, ""},
      {0, "NO [ALERT] Application-specific password required: (Failure)", Reason::WantsAppPassword,
       "Application-specific password required: (Failure)"},
      {0, "NO Use an App Password", Reason::WantsAppPassword, "Use an App Password"},
      {0, "NO [UNAVAILABLE] Try it", Reason::OnlyNow, "Try it"},
      {0, "NO [inuse]", Reason::OnlyNow, ""},
      {0, "NO Too many simultaneous connections", Reason::OnlyNow,
       "Too many simultaneous connections"},
      {454, "4.7.0 Busy", Reason::OnlyNow, "Busy"},
      {535, "5.7.8 Not accepted", Reason::WrongLogin, "Not accepted"},
      {534, "5.7.9 See our pages", Reason::WantsAppPassword, "See our pages"},
      {0, "NO anna's secret isn't it", Reason::WrongLogin, ""},
      {0, lengthy + " yyyy", Reason::WrongLogin, std::string(158, 'x') + "..."},
      {0, lengthy + "xüüü", Reason::WrongLogin, std::string(158, 'x') + "xü..."},
  };
  for (const auto& [code, reply, reason, words] : rows) {
    const post::LoginFailure failure =
        post::LoginFailureIn("mail", {"anna", "secret", {}}, code, reply);
    EXPECT_EQ(failure.reason, reason) << reply;
    const auto start = failure.sentence.find("says: ");
    EXPECT_EQ(start == std::string::npos ? "" : failure.sentence.substr(start + 6), words);
  }
}

}  // namespace
