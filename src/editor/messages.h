// All texts that the editor shows in message boxes.
#pragma once

#include <string_view>

namespace brindle::messages {

inline constexpr std::string_view kNegativeRefused = "Negative values are not allowed.";
inline constexpr std::string_view kZeroRefused = "Zero value not allowed";
inline constexpr std::string_view kChooseDirective = "Please choose directive";
inline constexpr std::string_view kCantCreateFile = "Could not create file: ";            // and the path
inline constexpr std::string_view kSegmentOutOfRange = "Segment must be between 1 and ";  // and the count

inline constexpr std::string_view kNoOffsetWithMirrorOrRotation =
    "Warning: If you allow mirrored or rotated subprograms then you cannot use the 'Tool offset by software' feature "
    "under the Tools tab.";

inline constexpr std::string_view kNoRunTimeData = "No RunTimeData has been defined for this tuning.";
inline constexpr std::string_view kDatasetNameUsed = "Sorry, that name is already used.";
inline constexpr std::string_view kDeleteDataset = "Do you want to delete dataset ";  // and its name
inline constexpr std::string_view kNoDatasetToDelete = "There is no dataset to delete";
inline constexpr std::string_view kSelectDatasetToCopy = "Please select a dataset to copy the default values from";
inline constexpr std::string_view kAddDatasetFirst = "Please choose 'Add Dataset' first";
inline constexpr std::string_view kMayDeleteDefinitions =
    "Warning: If you delete any RunTimeData definitions you will corrupt any existing RunTimeData associations. Do you "
    "want to be allowed to delete entries?";
inline constexpr std::string_view kSelectItemToDelete = "Please select an item to delete";

inline constexpr std::string_view kTooManyTools = "No more than 30 tools allowed.";

}  // namespace brindle::messages
