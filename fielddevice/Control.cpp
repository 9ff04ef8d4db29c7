#include "Control.h"

namespace FieldDevice {

namespace {

using nlohmann::json;
constexpr const char* Host = "127.0.0.1";
constexpr const char* Json = "application/json";
constexpr std::size_t Threads = 2;

void Fail(httplib::Response& response, int nStatus, const std::string& sMessage)
{
    response.status = nStatus;
    response.set_content(json{{"message", sMessage}}.dump(), Json);
}

void ShowState(httplib::Response& response, const Device& device)
{
    response.set_content(json(device.State()).dump(), Json);
}

void Apply(const json& change, DeviceState& state)
{
    state.slow_ms = change.value("slow_ms", state.slow_ms);
    state.refuse_password = change.value("refuse_password", state.refuse_password);
    state.refuse_fingerprints = change.value("refuse_fingerprints", state.refuse_fingerprints);
    state.finger_ms = change.value("finger_ms", state.finger_ms);
    state.finger_empty = change.value("finger_empty", state.finger_empty);
    state.time_zone_support = change.value("time_zone_support", state.time_zone_support);
}

} // namespace

Control::Control(Fleet& fleet)
    : m_fleet(fleet)
{
    m_server.new_task_queue = [] { return new httplib::ThreadPool(Threads); };
    m_server.set_exception_handler(
        [](const httplib::Request&, httplib::Response& response, const std::exception_ptr&) {
            Fail(response, 400, "a field has the wrong type");
        });
    m_server.Post("/device",
        [this](const httplib::Request& request, httplib::Response& response) { Change(request, response); });
    m_server.Get("/device",
        [this](const httplib::Request& request, httplib::Response& response) { Show(request, response); });
}

Control::~Control()
{
    if (!m_thread.joinable())
        return;
    m_server.stop();
    m_thread.join();
}

int Control::Start(int nPort)
{
    if (nPort == 0)
        nPort = m_server.bind_to_any_port(Host);
    else if (!m_server.bind_to_port(Host, nPort))
        nPort = 0;
    if (nPort <= 0)
        return 0;
    m_thread = std::thread([this] { m_server.listen_after_bind(); });
    while (!m_server.is_running())
        std::this_thread::yield();
    return nPort;
}

void Control::Change(const httplib::Request& request, httplib::Response& response)
{
    const json change = json::parse(request.body);
    Device* const pDevice = m_fleet.Find({change.value("address", ""), change.value("port", 0)});
    if (!pDevice)
        return Fail(response, 404, "no such device");
    DeviceState tried = pDevice->State();
    Apply(change, tried);
    if (!m_fleet.SetPresent(*pDevice, change.value("present", tried.present)))
        return Fail(response, 409, "the address is in use");
    m_fleet.Change(*pDevice, [&](DeviceState& state) { Apply(change, state); });
    ShowState(response, *pDevice);
}

void Control::Show(const httplib::Request& request, httplib::Response& response) const
{
    const Device* const pDevice = m_fleet.Find(
        {request.get_param_value("address"), std::atoi(request.get_param_value("port").c_str())});
    if (pDevice)
        ShowState(response, *pDevice);
    else
        Fail(response, 404, "no such device");
}

} // namespace FieldDevice
