#pragma once

#include "web/network.h"
#include "web/site.h"

namespace web {

struct Config;

/// Serves a fresh connection until it ends, over TLS where there is a context.
void serveConnection(tcp::socket socket, net::ssl::context* tls, const Config& config, Site& site);

}  // namespace web
