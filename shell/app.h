#pragma once

// What the main loop itself keeps.

struct app_record {
    bool running = false;  // the loop goes on
    bool help_visible = false;
    bool memory_report_visible = false;
};

extern app_record app;
