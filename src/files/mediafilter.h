// SPDX-License-Identifier: MIT
#pragma once

/// Which media the selector is to show; the numbers are those of its menu entries.
enum class MediaFilter {
    AllFiles = 0,
    RemovableMedia = 1,
};
