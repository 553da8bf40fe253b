#include "sequencerpool.h"

#include <sound/asequencer.h>
#include <sys/ioctl.h>

#include <algorithm>

bool sequencerpool::hasRoom(int descriptor, int client, int bytes)
{
    snd_seq_client_pool pool{};
    pool.client = client;
    if (ioctl(descriptor, SNDRV_SEQ_IOCTL_GET_CLIENT_POOL, &pool) < 0 || pool.input_pool <= 0)
        return true;
    // One cell for the event, and further ones of its size for what follows it.
    constexpr int cell = sizeof(snd_seq_event);
    const int needed = 1 + (bytes + cell - 1) / cell;
    return pool.input_free >= std::min(needed + pool.input_pool / 4, pool.input_pool);
}
