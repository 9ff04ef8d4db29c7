#include "Catalog.h"

namespace Platform::Catalog {

const RemoteConfigLogical::Dictionary_t& Dictionary()
{
    static const RemoteConfigLogical::Dictionary_t s_dictionary{
        {
            {"1", "Encoder", 0, {}},
            {"2", "Decoder", 0, {}},
            {"3", "Alarm Control Panel", 0, {}},
            {"4", "TV Wall", 0, {}},
            {"5", "ANPR Device", 0, {}},
            {"6", "Matrix", 0, {}},
            {"7", "Intelligent Device", 0, {}},
            {"8", "Access Control", 0, {}},
            {"16", "LED Device", 0, {}},
            {"21", "Video Intercom", 0, {}},
            {"34", "Emergency", 0, {}},
            {"40", "POS", 0, {}},
            {"43", "Radar", 0, {}},
            {"45", "VideoWall Control", 0, {}},
            {"50", "Lift Controller", 0, {}},
        },
        {
            {"Alderpoint", "Alderpoint", 0, {}},
            {"Brightwell", "Brightwell", 0, {}},
            {"Corvane", "Corvane", 0, {}},
            {"Dunmoor", "Dunmoor", 0, {}},
            {"Elmsgate", "Elmsgate", 0, {}},
            {"Other", "Other", 0, {}},
        },
        {
            {"Private", "Private", 1, {}},
            {"ONVIF", "ONVIF", RemoteConfigLogical::ProtocolOnvif, {}},
            {"SIP", "SIP", 2, {}},
            {"Modbus TCP", "Modbus TCP", 3, {}},
        },
        {
            {"camera", "Network camera", 0, "1"},
            {"network-recorder", "Network video recorder", 0, "1"},
            {"recorder", "Digital video recorder", 0, "1"},
            {"decoder", "Video decoder", 0, "2"},
            {"alarm-panel", "Alarm panel", 0, "3"},
            {"network-alarm-panel", "Network alarm panel", 0, "3"},
            {"video-wall", "Video wall", 0, "4"},
            {"plate-camera", "Number plate camera", 0, "5"},
            {"matrix", "Video matrix", 0, "6"},
            {"analytics-server", "Video analytics server", 0, "7"},
            {"door-controller", "Door controller", 0, "8"},
            {"door-terminal", "Door terminal", 0, "8"},
            {"led-screen", "LED screen", 0, "16"},
            {"door-station", "Door station", 0, "21"},
            {"indoor-station", "Indoor station", 0, "21"},
            {"management-station", "Management station", 0, "21"},
            {"help-point", "Help point", 0, "34"},
            {"cash-desk", "Cash desk", 0, "40"},
            {"radar", "Perimeter radar", 0, "43"},
            {"video-wall-controller", "Video wall controller", 0, "45"},
            {"lift-controller", "Lift controller", 0, "50"},
        },
        {
            {"camera-box", "Box camera", 0, "camera"},
            {"camera-dome", "Dome camera", 0, "camera"},
            {"camera-ptz", "Pan-tilt-zoom camera", 0, "camera"},
            {"recorder-16", "Up to 16 channels", 0, "network-recorder"},
            {"recorder-64", "More than 16 channels", 0, "network-recorder"},
            {"doors-1", "One door", 0, "door-controller"},
            {"doors-2", "Two doors", 0, "door-controller"},
            {"doors-4", "Four doors", 0, "door-controller"},
            {"station-apartments", "Apartment building", 0, "door-station"},
            {"station-house", "Single house", 0, "door-station"},
        },
    };
    return s_dictionary;
}

const std::vector<RemoteConfigLogical::VideoServer_t>& VideoServers()
{
    // One server works with all devices.
    static const std::vector<RemoteConfigLogical::VideoServer_t> s_vecServers{{"1", "Main server"}};
    return s_vecServers;
}

} // namespace Platform::Catalog
