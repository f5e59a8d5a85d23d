#include "data/strings.h"

#include "app.h"

#include <algorithm>
#include <iterator>

namespace zandolt {

namespace {

// One row of the table: the text of the English blocks (United States and Canada hold the same
// texts) and that of the Spanish block of Mexico. The texts stand exactly as the station shows
// them, trailing blanks and the English rows of the Spanish block included.
struct StringRow
{
    int id;
    const char* english;
    const char* spanish;
};

// Sorted by id.
constexpr StringRow Rows[] = {
    {101, "ESD PROTECTION TEST LOG", "BITACORA DE PRUEBA DE EQUIPO ESD"},
    {102, "ESD Protection Test Results", "Resultados de la prueba de equipo ESD"},
    {103, "Operator Information", "Informacion del operador"},
    {104, "Operator's Name", "Nombre"},
    {105, "Date:", "Fecha"},
    {106, "Time:", "Hora"},
    {107, "Wrist Strap:", "Munequera"},
    {108, "Foot Strap:", "Taloneras"},
    {109, "Wrist Low Setting:", "Nivel inferior de munequera"},
    {110, "Foot low Setting:", "Nivel inferior de taloneras"},
    {111, "Wrist high setting:", "Nivel superior de munequera"},
    {112, "Foot high Setting:", "Nivel superior de taloneras"},
    {113, "Required", "Necesario"},
    {114, "if switch", "si switch"},
    {115, "not used", "no es utilizado"},
    {119, "Please step on footplate, plug in wrist strap, and hold tester button",
     "Parese sobre la base, inserte su cordon de munequera y presione el boton hasta obtener los resultados."},
    {120, "Action:", "Accion"},
    {121, "Received:", "Mediciones"},
    {123, "Wrist high", "Munequere"},
    {124, "Right foot high", "Talonera derecha"},
    {125, "Left foot high", "Talonera iszquierda"},
    {126, "Wrist Low", "Munequere"},
    {127, "Right Foot Low", "Talonera derecha"},
    {128, "Left Foot Low", "Talonera iszquierda"},
    {129, "Communications failure", "Error de comunicacion"},
    {130, "Readings OK thank you.  Please press the Enter key or click on Cancel.",
     "Equipo ESD en buen estado.  Preseone Continuar o Cancelar para continuar."},
    {131, "Wrist strap is low. Check and try again.", "Munequera con baja resistencia, revisela y pruebe de nuevo."},
    {132, "Left heel is low.  Check and try again.",
     "Talonera izquierda con baga resistencia, revisela y pruebe de nuevo."},
    {133, "Right heel is low.  Check and try again.",
     "Talonera derecha con baja resistencia, revisela y pruebe de nueva."},
    {134, "Wrist strap is high.  Make sure it is connected and try again.",
     "Munequera con alta resistencia, revisela y pruebe de nueva."},
    {135, "Left heel is high.  Make sure it is connected and try again.",
     "Talonera izquierda con alta resistencial, revisela y pruebe de nuevo."},
    {136, "Right heel is high. Make sure it is connected and try again.",
     "Talonera derecha con alta resistencia, revisela y pruebo de nuevo."},
    {137, "OK", "Acceptables"},
    {138, "Communications failure.  Try pressing the switch longer.",
     "Error de communicacion.  Presione el boton hasta obtener los resultados."},
    {140, "Results", "Resultados"},
    {141, "Wrist:", "Munequera"},
    {142, "Left foot:", "Talonera izquierda"},
    {143, "Right foot:", "Talonera deredha"},
    {144, "&Cancel", "&Cancelar"},
    {145, "Modify &Sick time", "Modify &Sick time"},
    {146, "Modify $Password", "Modify $Password"},
    {150, "Footstraps OK also", "Taloneras tambien acceptables"},
    {151, "Wrist Strap OK also", "Munequera tambien acceptables"},
    {158, "Sorry your ID was not found.  Please contact your supervisor.",
     "Sorry your ID was not found.  Please contact your supervisor."},
    {159, "Welcome", "Bienvenidos"},
    {160, "Welcome to ", "Bienvenidos a"},
    {161, "Please scan your badge", "Inserta tu codigo de barras"},
    {162, "Please type your name", "Teclea tu nombre"},
    {163, "Please type your ID#", "Tedea tu numero"},
    {164, "Please type your badge#", "Teclea tu numero de empleado"},
    {165, "Press Button", "Presione el boton"},
    {166, "Please plug in wrist strap", "Conecte su munequera"},
    {167, "Step on foot plate", "Parese sobre la base"},
    {168, "Select rocker switch position", "Select rocker switch position"},
    {169, "Press and hold the button", "Presione y sostenga el boton"},
    {170, "Multiple problems", "Resultados"},
    {171, "Wrist is Low.", "Munequera con baja resistencia."},
    {172, "Left foot is low.", "Talonera izquierda con baja resistencia."},
    {173, "Right foot is low.", "Talonera derecha con baja resistencia."},
    {174, "Wrist is high.", "Munequera con alta resistencia."},
    {175, "Left foot is high.", "Talonera izquierda con alta resistencia."},
    {176, "Right foot is high.", "Talonera derecha con alta resistencia."},
    {177, "or type name (Doe, Jane)", "teclea tu nombre (Lopez, Maria)"},
    {178, "or type ID#", "tedea tu numero"},
    {179, "or type badge#", "tedea tu numero de empleado"},
    {180, "or type name (Doe, Jane) or ID#", "teclea tu nombre (Lopez, Maria)"},
};

} // namespace

std::string LoadResString(Language language, int id)
{
    auto row =
        std::lower_bound(std::begin(Rows), std::end(Rows), id, [](const StringRow& r, int key) { return r.id < key; });
    if (row == std::end(Rows) || row->id != id)
        return "";
    switch (language) {
    case Language::SpanishMexico:
        return row->spanish;
    case Language::EnglishUS:
    case Language::EnglishCanada:
        break;
    }
    // A language without a block of its own gets the English of the United States.
    return row->english;
}

std::string LoadResString(const App& app, int id)
{
    return LoadResString(app.language, id);
}

} // namespace zandolt
