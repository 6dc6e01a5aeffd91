#pragma once

#include "map/document/services.h"
#include "platform/documents/win_app.h"

namespace quorvel {

/// Offers the maps whose editor ended without saving them, one by one: they come back as modified documents
/// with a frame, are dropped, or stay to be offered at the next start. Those that a running editor holds are
/// passed over. True: at least one came back.
bool OfferRecovery(CWinApp& application, Services& services);

}  // namespace quorvel
