#pragma once

// Opens standard input, output and error where the program was started without them, so that no
// file or connection gets their numbers and with these what is written there. Such a stream gives
// and takes nothing. Called before anything else is opened.
void standard_streams_open();
