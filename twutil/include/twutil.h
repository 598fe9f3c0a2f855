// The utility library's whole public interface.
#pragma once

#include "twutil_api.h"
#include "twversion.h"
