#pragma once

// The numbers by which the tests find the controls of the dialogs. Frozen: they repeat those of the forms and of the
// criteria, so that a number changed there fails.

// "Enter Corridor Size".
inline constexpr int kCorridorSizeId = 1000;

// "Select Uds Files".
inline constexpr int kFileListId = 1001;
inline constexpr int kAddFilesId = 1002;
inline constexpr int kRemoveFilesId = 1003;
inline constexpr int kReadHitListId = 1004;
inline constexpr int kSaveHitListId = 1005;
inline constexpr int kSingleReferenceId = 1006;
inline constexpr int kReferencePathId = 1007;
inline constexpr int kBrowseReferenceId = 1008;
inline constexpr int kAverageReferenceId = 1009;
inline constexpr int kFilterId = 1010;
inline constexpr int kTruncateId = 1011;
inline constexpr int kChannelClassId = 1012;
inline constexpr int kMinTimeId = 1013;
inline constexpr int kMaxTimeId = 1014;

// "Error and Warning Messages".
inline constexpr int kErrorTextId = 1132;

// "Edit Critical Values".
inline constexpr int kAverageResidualId = 1488;
inline constexpr int kStandardDeviationId = 1490;
inline constexpr int kCorrelationId = 1494;
inline constexpr int kCorridorShareId = 1497;
inline constexpr int kTStatisticId = 1499;
inline constexpr int kMomentId = 1501;
/// From top to bottom.
inline constexpr int kCriticalValueIds[] = {kAverageResidualId, kStandardDeviationId, kCorridorShareId,
                                            kCorrelationId,     kTStatisticId,        kMomentId};
