#pragma once
/// @file  Resource ids: dialog templates, title strings, controls. The numbers are known to hosts and test scripts.

// Dialog templates
#define IDD_EXPOSURE 107

// Title strings
#define IDS_EXPOSURE 209

// Page "Exposure"
#define IDC_MARK_DIRTY 1055  // no control of this template; its click marks the page dirty all the same
#define IDC_BRIGHTNESS_SLIDER 1073
#define IDC_BRIGHTNESS_MODE 1074
#define IDC_BRIGHTNESS 1075
#define IDC_BRIGHTNESS_MIN 1076
#define IDC_BRIGHTNESS_MAX 1077
#define IDC_BRIGHTNESS_EDIT 1078
#define IDC_GAIN_SLIDER 1079
#define IDC_GAIN_MIN 1080
#define IDC_GAIN_EDIT 1081
#define IDC_GAIN_MAX 1082
#define IDC_GAIN_MODE 1083
#define IDC_GAIN 1084
#define IDC_SHUTTER_SLIDER 1085
#define IDC_SHUTTER_MIN 1086
#define IDC_SHUTTER_EDIT 1087
#define IDC_SHUTTER_MAX 1088
#define IDC_SHUTTER_MODE 1089
#define IDC_SHUTTER 1090
#define IDC_SHUTTER_TIMEBASE 1091
#define IDC_SHUTTER_EXTENDED 1092
#define IDC_GAMMA_SLIDER 1093
#define IDC_GAMMA_MIN 1094
#define IDC_GAMMA_EDIT 1095
#define IDC_GAMMA_MAX 1096
#define IDC_GAMMA_MODE 1097
#define IDC_GAMMA 1098
#define IDC_AUTOEXPOSURE_SLIDER 1099
#define IDC_AUTOEXPOSURE_MIN 1100
#define IDC_AUTOEXPOSURE_EDIT 1101
#define IDC_AUTOEXPOSURE_MAX 1102
#define IDC_AUTOEXPOSURE_MODE 1103
#define IDC_AUTOEXPOSURE 1104
#define IDC_SHUTTER_UNIT 1153
