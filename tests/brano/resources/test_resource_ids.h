/* Identifiers shared by test.rc and the resource tests. */
#ifndef TEST_RESOURCE_IDS_H
#define TEST_RESOURCE_IDS_H

#define IDS_HELLO 1
#define IDS_SECOND_BLOCK 17
#define IDS_UNICODE 35
#define IDS_EMPTY 36
#define IDS_LAST_OF_BLOCK 47
#define IDS_HIGH 4000
#define IDS_MISSING_IN_BLOCK 2
#define IDS_MISSING_BLOCK 300

#define IDD_TEST 101
#define IDC_LABEL 1001
#define IDC_EDIT 1002
#define IDOK_BUTTON 1

#define IDM_MAIN 201
#define IDM_OPEN 2001
#define IDM_EXIT 2002

#define IDR_BYTES 301
#define IDR_LANGUAGES 302

#endif
