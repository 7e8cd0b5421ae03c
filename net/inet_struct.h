// Network state: `net`. The UDP step fills it.
#pragma once

struct inet_struct {
	int socket_open;
};
