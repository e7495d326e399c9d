#define IDS_APP_TITLE 1
#define IDS_WELCOME 2
