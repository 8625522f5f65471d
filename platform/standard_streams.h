#pragma once

// Opens standard input, output and error where the program was started without them, so that no
// file or connection gets their numbers and with these what is written there. Such a stream gives
// and takes nothing. From then on what is written beyond the size that a file may have fails, as on
// a full disk, and does not end the program. Called before anything else is opened.
void standard_streams_open();
