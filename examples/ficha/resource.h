// Numbers of the form's resources: the dialog and its controls.
#pragma once

#define IDD_CUSTOMER 100

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

#define IDC_NAME 1001
#define IDC_TAX_ID 1002
#define IDC_POSTAL_CODE 1003
#define IDC_PROVINCE 1004
#define IDC_ACCOUNT 1005
#define IDC_START 1006
#define IDC_ASK_START 1007
#define IDC_END 1008
#define IDC_ASK_END 1009
#define IDC_PAYMENT 1010
#define IDC_BALANCE 1011
#define IDC_BALANCE_WORDS 1012
#define IDC_PHOTOGRAPH 1013
#define IDC_ASK_PHOTOGRAPH 1014
#define IDC_SAVE 1015
#define IDC_EXPORT 1016
#define IDC_STATUS 1017
#define IDC_PREVIOUS 1018
#define IDC_NEXT 1019
#define IDC_NEW 1020
#define IDC_UNDO 1021
