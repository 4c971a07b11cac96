#pragma once
#include "platform.h"
