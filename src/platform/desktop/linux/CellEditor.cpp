#include "platform/desktop/CellEditor.h"

#include <gtk/gtk.h>

namespace quillon {
namespace {

void TakeText(GtkEditable* box, CellEditor::State* state) {
  state->text = gtk_entry_get_text(GTK_ENTRY(box));
}

gboolean NoteKey(GtkWidget* /*box*/, const GdkEventKey* event, CellEditor::State* state) {
  state->escaped = event->keyval == GDK_KEY_Escape;
  return FALSE;
}

void Follow(GtkCellRenderer* /*renderer*/, GtkCellEditable* editor, const char* /*path*/, CellEditor::State* state) {
  if (!GTK_IS_ENTRY(editor)) return;
  state->escaped = false;
  TakeText(GTK_EDITABLE(editor), state);
  g_signal_connect(editor, "changed", G_CALLBACK(TakeText), state);
  g_signal_connect(editor, "key-press-event", G_CALLBACK(NoteKey), state);
}

}  // namespace

CellEditor::CellEditor(void* renderer)
    : renderer_(g_object_ref(renderer)),
      handler_(g_signal_connect(renderer, "editing-started", G_CALLBACK(Follow), &state_)) {}

CellEditor::~CellEditor() {
  g_signal_handler_disconnect(renderer_, handler_);
  g_object_unref(renderer_);
}

std::optional<std::string> CellEditor::TypedText() const {
  if (state_.escaped) return std::nullopt;
  return state_.text;
}

}  // namespace quillon
