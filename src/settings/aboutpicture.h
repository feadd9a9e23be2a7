// SPDX-License-Identifier: MIT
#pragma once

namespace teskel
{

/// The picture of the About dialog: a book, 29 by 30 pixels, as an XPM image.
inline constexpr const char* aboutPicture[] = {
    "29 30 8 1",
    "  c None",
    "b c #2F6FB5",
    "d c #1F4A7C",
    "l c #6FA3DB",
    "w c #FFFFFF",
    "p c #C9CDD2",
    "t c #1B2A41",
    "r c #C8372D",
    "                             ",
    "    ddddddddddddddddddddd    ",
    "   ddddlbbbbbbbbbbbbbbbbbd   ",
    "   ddddlbbbbbbbbbbbbbbbbbd   ",
    "   ddddlbbbbbbbbbbbbbbbbbd   ",
    "   ddddlbbwwwwwwwwwwwwwbbd   ",
    "   ddddlbbwwwwwwwwwwwwwbbd   ",
    "   ddddlbbwwtttttttttwwbbd   ",
    "   ddddlbbwwtttttttttwwbbd   ",
    "   ddddlbbwwtwwtttwwtwwbbd   ",
    "   ddddlbbwwwwwtttwwwwwbbd   ",
    "   ddddlbbwwwwwtttwwwwwbbd   ",
    "   ddddlbbwwwwwtttwwwwwbbd   ",
    "   ddddlbbwwwwwtttwwwwwbbd   ",
    "   ddddlbbwwwwwtttwwwwwbbd   ",
    "   ddddlbbwwwwwtttwwwwwbbd   ",
    "   ddddlbbwwwwtttttwwwwbbd   ",
    "   ddddlbbwwwwwwwwwwwwwbbd   ",
    "   ddddlbbwwwwwwwwwwwwwbbd   ",
    "   ddddlbbbbbbbbbbbbbbbbbd   ",
    "   ddddlbbbbbbbbbbbbbbbbbd   ",
    "   ddddlbbbbbbbbbbbbbbbbbd   ",
    "   ddddlbbbbbbbbbbbbbbbbbd   ",
    "   ddddddddddddddddddddddd   ",
    "   dddwwwwwwwwwwwwwwrrwwwp   ",
    "   dddpppppppppppppprrpppp   ",
    "   dddwwwwwwwwwwwwwwrrwwwp   ",
    "   dddpppppppppppppprrpppp   ",
    "   dddddddddddddddddrrddd    ",
    "                     r       ",
};

} // namespace teskel
