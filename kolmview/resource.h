#pragma once
/// @file  Resource ids of the viewer.

#define IDI_VIEWER 1
#define IDD_VIEWER 1100
#define IDC_PICTURE 1101
#define IDC_HISTOGRAM 1102
#define IDC_FIGURES 1103
#define IDC_PROPERTIES 1104
#define IDC_STILL 1105
#define IDC_STREAM 1106
