#pragma once

#include "web/network.h"
#include "web/site.h"

namespace web {

class Connections;
struct Config;

/// Serves a fresh connection until it ends, over TLS where there is a context; closes it where there is no room.
void serveConnection(tcp::socket socket, net::ssl::context* tls, const Config& config, Site& site,
                     Connections& connections);

}  // namespace web
