// Stands before the system's own fsync: a disk that syncs in 5 ms.
#include <unistd.h>

extern "C" int fsync(int) { return usleep(5000); }
