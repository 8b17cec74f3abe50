// SPDX-License-Identifier: GPL-3.0-or-later
// The kinds of mail that need no server.
#include "post/mail_contract.h"

INSTANTIATE_TEST_SUITE_P(Services, MailContractTest,
                         testing::Values(MailKind{"Post", MakePostWorld},
                                         MailKind{"System", MakeSystemWorld}),
                         NameOfKind);
