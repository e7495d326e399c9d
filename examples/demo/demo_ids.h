#define IDS_APP_TITLE 1
#define IDS_WELCOME 2
#define IDS_OK 3
#define IDS_PANEL 4

#define IDC_WELCOME 100
#define IDC_OK 101
#define IDC_PANEL 102
