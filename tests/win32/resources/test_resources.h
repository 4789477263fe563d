// test_resources.h - the ids of resources that only the tests use.

#ifndef TESTS_WIN32_RESOURCES_TEST_RESOURCES_H
#define TESTS_WIN32_RESOURCES_TEST_RESOURCES_H

// 3 by 2 pixels, 8 bits with a colour table of 4: red, green, blue above;
// grey (80, 90, 100), red, red below.
#define IDB_FOUR_COLOURS 501

// 2 by 1 pixels, 24 bits: red, blue.
#define IDB_TRUE_COLOURS 502

// Three toolbar images each.
#define IDB_TOOLS 503
#define IDB_MORE_TOOLS 504

#define IDS_HELP 601
#define IDS_LONG_HELP 602

#endif
