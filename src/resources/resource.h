#pragma once
/// @file  Resource ids: dialog templates, title strings, controls. The numbers are known to hosts and test scripts.

#ifndef IDC_STATIC
#define IDC_STATIC (-1)  // texts and group boxes that no code touches
#endif

// Dialog templates
#define IDD_EXPOSURE 107
#define IDD_FORMAT 206

// Title strings
#define IDS_FORMAT 207
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

// Page "Format"
#define IDC_AREA_X 1045
#define IDC_AREA_Y 1046
#define IDC_AREA_WIDTH 1047
#define IDC_AREA_HEIGHT 1048
#define IDC_FRAME_RATE 1049
#define IDC_MULTI_SHOT 1050
#define IDC_AREA_ENABLE 1055  // no control of this template; a check box that enables the area of interest
#define IDC_AREA_WIDTH_MAX 1056
#define IDC_AREA_HEIGHT_MAX 1057
#define IDC_AREA_WIDTH_UNIT 1058
#define IDC_AREA_HEIGHT_UNIT 1059
#define IDC_FORMAT_MARK_DIRTY 1065  // no control of this template; its click marks the page dirty all the same
#define IDC_MODE 1068
#define IDC_FRAME_RATE_SLIDER 1069
#define IDC_FRAME_RATE_MIN 1070
#define IDC_FRAME_RATE_MAX 1071
#define IDC_AREA_X_SPIN 1072
#define IDC_AREA_Y_SPIN 1073
#define IDC_AREA_WIDTH_SPIN 1074
#define IDC_AREA_HEIGHT_SPIN 1075
#define IDC_ISO_SPEED 1152
#define IDC_ISO_CHANNEL 1155
