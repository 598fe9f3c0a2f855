// The utility library's whole public interface.
#pragma once

#include "twutil_api.h"
#include "twversion.h"
#include "settings.h"
#include "string_helpers.h"
#include "sorted_string_array.h"
#include "exif.h"
#include "iptc.h"
#include "connect_cad.h"
#include "file_name.h"
#include "file_operation.h"
#include "hyperlink.h"
#include "shell_helpers.h"
#include "shell_seam.h"
#include "clipboard.h"
#include "dll_loader.h"
#include "tw_exception.h"
