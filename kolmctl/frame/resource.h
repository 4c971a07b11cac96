#pragma once
/// @file  Resource ids of the property frame. OK and Cancel have the system's.

#define IDD_PROPERTY_FRAME 1000
#define IDC_PAGE_AREA 1001
#define IDC_APPLY 1002
#define IDC_TABS 1003
