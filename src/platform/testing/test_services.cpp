// Desktop services in the test backend: written down, never started.
#include "platform/desktop_services.h"
#include "platform/testing/test_state.h"

bool showErrorNotice(const char* title, const char* text)
{
    auto& s = testBackend::state();
    s.notices.push_back({title ? title : "", text ? text : ""});
    return s.servicesAvailable;
}

bool openWebAddress(const char* address)
{
    auto& s = testBackend::state();
    s.webAddresses.push_back(address ? address : "");
    return s.servicesAvailable;
}
