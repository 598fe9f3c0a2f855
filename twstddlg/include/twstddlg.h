// The library's whole public interface.
#pragma once

#include "twstddlg_api.h"
#include "frame/library_entry.h"
