#pragma once

// Keeps standard error closed to library chatter for its lifetime: some
// image decoders print their own complaints ("libpng error: ...") straight to
// the stream, while the tool promises one line of its own per failure.
class CCliStderrSilencer
{
public:
    CCliStderrSilencer();
    ~CCliStderrSilencer();
    CCliStderrSilencer(const CCliStderrSilencer &) = delete;
    CCliStderrSilencer &operator=(const CCliStderrSilencer &) = delete;

private:
    int m_saved = -1;
};
