#include "App.h"

#include "GlobalData.h"
#include "MsgBox.h"
#include "Text.h"
#include "aCatalogsWindow.h"

namespace folimark {

Ref<class App> App() {
    return Ref<class App>(dynamic_cast<class App*>(CurrentApplication()));
}

void App::Event_Open() {
    GlobalData::SetupFileTypeStrings();
    // The window reads its list on its first activation, inside Show, and finds itself through the global
    // then.
    GlobalData::CatalogsWindow = New<aCatalogsWindow>();
    GlobalData::CatalogsWindow->Show();
}

bool App::Event_UnhandledException(const RuntimeException* error) {
    if (error != nullptr) {
        MsgBox(error->ClassName() + EndOfLine + EndOfLine + Join(error->Stack(), EndOfLine));
    }
    return false;
}

} // namespace folimark
