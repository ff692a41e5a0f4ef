#pragma once

namespace studio {

// Keys of the studio's own settings.
inline constexpr const char* kAntialiasSetting = "Antialias";
inline constexpr const char* kRaytracerSetting = "Raytracer";
inline constexpr const char* kPovRayProgramSetting = "PovRayProgram";
inline constexpr const char* kSearchFoldersSetting = "SearchFolders";
inline constexpr const char* kCustomFieldsSetting = "CustomFieldNames";
inline constexpr const char* kSupportSiteSetting = "SupportSite";
inline constexpr const char* kRecentFilesSetting = "RecentFiles";
inline constexpr const char* kExportFolderSetting = "ExportFolder";
inline constexpr const char* kNavigationSetting = "Navigation";
inline constexpr const char* kBackupsSetting = "Backups";
inline constexpr const char* kFirstStepsSetting = "FirstSteps";
inline constexpr const char* kThemeSetting = "Theme";
inline constexpr const char* kGeometrySetting = "WindowGeometry";
inline constexpr const char* kOutlinerSetting = "Outliner";
inline constexpr const char* kLinkSetting = "LinkMaterials";
inline constexpr const char* kDocksSetting = "WindowDocks";
inline constexpr const char* kPreviewBackgroundSetting = "PreviewBackground";
inline constexpr const char* kViewportBackgroundSetting = "ViewportBackground";

}  // namespace studio
