#pragma once

#include "web/connections.h"
#include "web/nursesession.h"
#include "web/stream.h"

namespace web {

using UpgradeRequest = beast::http::request<beast::http::string_body>;

/// Answers a page's request for its WebSocket, which goes on until the connection ends: its messages go to the session,
/// the session's lines to it.
void servePage(Stream stream, std::shared_ptr<NurseSession> session, std::size_t longestMessage,
               Connections& connections, const UpgradeRequest& request);

}  // namespace web
