#pragma once
#include "list.h"
