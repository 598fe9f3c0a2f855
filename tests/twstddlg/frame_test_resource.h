// Strings of the frame's test program that stand beside the library's own.
#pragma once

// The test program's own text for the library's 30019.
#define IDS_TEST_OWN_REGISTRY 30019
// A text that begins with its placeholder.
#define IDS_TEST_LEADING_PLACEHOLDER 30042
