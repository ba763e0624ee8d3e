#pragma once
#include "document/list.h"
