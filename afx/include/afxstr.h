#pragma once
#include "afxplatform.h"
