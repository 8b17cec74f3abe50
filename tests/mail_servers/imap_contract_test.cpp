// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/mail_contract.h"
#include "mail_servers/imap_world.h"

INSTANTIATE_TEST_SUITE_P(Servers, MailContractTest,
                         testing::Values(MailKind{"Imap", MakeImapWorld}), NameOfKind);
