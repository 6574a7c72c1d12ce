#pragma once

namespace hotel {

// Gives entry panels (screen/field_form.h) what lies above them: the category database for their
// drop-downs, pinyin for the letters typed there, and the calculator for amounts. Called once, by the
// program.
void SetUpForms();

} // namespace hotel
