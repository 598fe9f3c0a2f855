// The library's whole public interface.
#pragma once

#include "twstddlg_api.h"
#include "frame/library_entry.h"
#include "frame/safe_timer.h"
#include "frame/placement_win.h"
#include "frame/system_error.h"
#include "frame/module_version.h"
#include "frame/fix_mfc_toolbar.h"
#include "values/color.h"
#include "values/string_arrays.h"
#include "values/symbol.h"
#include "picture/picture_tag.h"
#include "picture/picture_tag_array.h"
#include "dialogs/message_box.h"
#include "dialogs/ask_something.h"
