#include "shell/session.h"
#include <shapefil.h>
#include <unistd.h>
