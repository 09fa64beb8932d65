#include "settings/SearchFilters.h"

const std::array<SearchFilter, 9> SearchFilters = {{
    {L"All files", L"*"},
    {L"Audio files", L"*.mp3:*.flac:*.wma:*.wav:*.au:*.ogg:*.mid"},
    {L"Video files", L"*.mpg:*.mpeg:*.mp4:*.avi:*.mkv:*.wmv:*.mov:*.ts:*.webm:*.m4v:*.mts"},
    {L"Picture files", L"*.jpg:*.jpeg:*.png:*.bmp:*.gif:*.psd:*.tif:*.tiff"},
    {L"Document files", L"*.txt:*.rtf:*.pdf:*.doc:*.docx:*.xls:*.xlsx:*.ppt:*.pptx:*.ods:*.odt:*.odp"},
    {L"Compressed files", L"*.zip:*.7z:*.rar:*.arj:*.cab:*.ace:*.lzh:*.gz:*.tar:*.bz2"},
    {L"Executable files", L"*.exe:*.dll:*.com:*.bat:*.msi:*.msp:*.cmd:*.scr:*.cpl"},
    {L"Unix Dot-files", L".*"},
    {L"Custom filter...", L""},
}};
