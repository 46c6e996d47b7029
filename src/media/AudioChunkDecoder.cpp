// Decoding a stretch of an audio track to 8 kHz mono.
#include "AudioChunkDecoder.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

#include <cmath>
#include <iterator>
#include <numeric>

namespace AudioDecoding {

namespace {

// A frame whose time differs from where the samples so far put it by more than this many
// samples (a gap or an overlap in the track) restarts the count from its own time.
constexpr qint64 driftLimit = samplesPerBin;

struct PacketFree
{
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};
struct FrameFree
{
    void operator()(AVFrame *frame) const { av_frame_free(&frame); }
};

} // namespace

ChunkDecoder::ChunkDecoder(const TrackInfo &track)
    : m_track(track)
{}

ChunkDecoder::~ChunkDecoder()
{
    swr_free(&m_swr);
    avcodec_free_context(&m_codec);
}

bool ChunkDecoder::open(QString *error)
{
    m_input = LibAv::openInput(m_track.path, error, false);
    if (!m_input)
        return false;
    if (m_track.streamIndex < 0 || m_track.streamIndex >= int(m_input->nb_streams)) {
        *error = QStringLiteral("the track is gone");
        return false;
    }
    for (unsigned i = 0; i < m_input->nb_streams; ++i)
        m_input->streams[i]->discard = int(i) == m_track.streamIndex ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    const AVCodec *codec = avcodec_find_decoder(m_track.parameters->codec_id);
    if (!codec) {
        *error = QStringLiteral("no decoder for %1")
                     .arg(QString::fromUtf8(avcodec_get_name(m_track.parameters->codec_id)));
        return false;
    }
    m_codec = avcodec_alloc_context3(codec);
    int result = m_codec ? avcodec_parameters_to_context(m_codec, m_track.parameters.get()) : AVERROR(ENOMEM);
    if (result >= 0) {
        m_codec->pkt_timebase = m_track.timeBase;
        // The analysis has threads of its own, one per part of the track.
        m_codec->thread_count = 1;
        result = avcodec_open2(m_codec, codec, nullptr);
    }
    if (result < 0) {
        *error = LibAv::errorText(result);
        return false;
    }
    return true;
}

bool ChunkDecoder::resetResampler()
{
    swr_free(&m_swr);
    m_swrChannels = m_codec->ch_layout.nb_channels;
    m_swrRate = m_codec->sample_rate;
    m_swrFormat = m_codec->sample_fmt;
    AVChannelLayout in{};
    if (m_codec->ch_layout.order == AV_CHANNEL_ORDER_UNSPEC)
        av_channel_layout_default(&in, m_swrChannels);
    else
        av_channel_layout_copy(&in, &m_codec->ch_layout);
    AVChannelLayout mono = AV_CHANNEL_LAYOUT_MONO;
    int result = swr_alloc_set_opts2(&m_swr, &mono, AV_SAMPLE_FMT_FLT, sampleRate, &in,
                                     AVSampleFormat(m_swrFormat), m_swrRate, 0, nullptr);
    const int centre = av_channel_layout_index_from_channel(&in, AV_CHAN_FRONT_CENTER);
    if (result >= 0 && m_track.centreChannelOnly && centre >= 0 && m_swrChannels > 2) {
        std::vector<double> matrix(size_t(m_swrChannels), 0.0);
        matrix[size_t(centre)] = 1.0;
        result = swr_set_matrix(m_swr, matrix.data(), m_swrChannels);
    }
    av_channel_layout_uninit(&in);
    if (result >= 0)
        result = swr_init(m_swr);
    if (result < 0) {
        swr_free(&m_swr);
        ++m_errors;
        return false;
    }
    return true;
}

bool ChunkDecoder::emitFrame(AVFrame *frame, qint64 endSample, const SampleSink &sink, bool *stop)
{
    if (frame->nb_samples <= 0 || frame->sample_rate <= 0)
        return true;
    if (!m_swr || frame->ch_layout.nb_channels != m_swrChannels || frame->sample_rate != m_swrRate ||
        frame->format != m_swrFormat) {
        m_codec->sample_rate = frame->sample_rate;
        av_channel_layout_uninit(&m_codec->ch_layout);
        av_channel_layout_copy(&m_codec->ch_layout, &frame->ch_layout);
        m_codec->sample_fmt = AVSampleFormat(frame->format);
        if (!resetResampler())
            return false;
        m_position = -1;
    }
    // Where the frame's samples go. After a seek (or a jump in the track) the count starts
    // from the frame's time, on an input sample that falls exactly on an output sample: the
    // resampler then takes the same instants as it would reading the track from its start,
    // so chunks decoded apart join sample for sample.
    int skip = 0;
    const qint64 pts = frame->best_effort_timestamp;
    if (pts != AV_NOPTS_VALUE) {
        const double time = double(pts) * av_q2d(m_track.timeBase) - m_track.startTime;
        const auto expected = qint64(std::llround(time * sampleRate));
        if (m_position < 0 || std::llabs(expected - m_position) > driftLimit) {
            if (m_position >= 0)
                swr_init(m_swr); // a jump: the filter's history belongs to other samples
            const qint64 step = m_swrRate / std::gcd(m_swrRate, sampleRate);
            const auto input = qint64(std::llround(time * m_swrRate));
            skip = int(((step - input % step) % step));
            if (skip >= frame->nb_samples) {
                m_position = -1;
                return true;
            }
            m_position = (input + skip) / step * (sampleRate / std::gcd(m_swrRate, sampleRate));
        }
    } else if (m_position < 0) {
        return true; // no place to put these samples yet
    }
    const uint8_t *planes[AV_NUM_DATA_POINTERS * 8];
    const bool planar = av_sample_fmt_is_planar(AVSampleFormat(frame->format));
    const int planeCount = planar ? frame->ch_layout.nb_channels : 1;
    if (planeCount > int(std::size(planes)))
        return true;
    const int offset = skip * av_get_bytes_per_sample(AVSampleFormat(frame->format)) *
                       (planar ? 1 : frame->ch_layout.nb_channels);
    for (int p = 0; p < planeCount; ++p)
        planes[p] = frame->extended_data[p] + offset;
    const int inputCount = frame->nb_samples - skip;
    const int capacity = swr_get_out_samples(m_swr, inputCount);
    if (capacity <= 0)
        return true;
    m_buffer.resize(size_t(capacity));
    auto *out = reinterpret_cast<uint8_t *>(m_buffer.data());
    const int count = swr_convert(m_swr, &out, capacity, planes, inputCount);
    if (count < 0) {
        ++m_errors;
        return true;
    }
    const qint64 first = m_position;
    m_position += count;
    if (count > 0 &&
        !sink(first, m_buffer.data(), int(std::min<qint64>(count, std::max<qint64>(0, endSample - first)))))
        *stop = true;
    if (m_position >= endSample)
        *stop = true;
    return true;
}

qint64 ChunkDecoder::decode(double start, double end, double runIn, const SampleSink &sink)
{
    const auto startSample = qint64(std::llround(start * sampleRate));
    const auto endSample = qint64(std::llround(end * sampleRate));
    const double seekTime = std::max(0.0, start - runIn);
    const auto target = qint64((seekTime + m_track.startTime) / av_q2d(m_track.timeBase));
    if (av_seek_frame(m_input.get(), m_track.streamIndex, target, AVSEEK_FLAG_BACKWARD) < 0 && seekTime > 0) {
        // Some files cannot seek: read them from their start.
        av_seek_frame(m_input.get(), m_track.streamIndex, 0, AVSEEK_FLAG_BACKWARD | AVSEEK_FLAG_BYTE);
    }
    avcodec_flush_buffers(m_codec);
    if (m_swr)
        swr_init(m_swr);
    m_position = -1;

    std::unique_ptr<AVPacket, PacketFree> packet(av_packet_alloc());
    std::unique_ptr<AVFrame, FrameFree> frame(av_frame_alloc());
    bool stop = false;
    bool draining = false;
    while (!stop) {
        int result = 0;
        if (!draining) {
            result = av_read_frame(m_input.get(), packet.get());
            if (result < 0) {
                if (result != AVERROR_EOF)
                    ++m_errors;
                draining = true;
                result = avcodec_send_packet(m_codec, nullptr);
            } else {
                if (packet->stream_index != m_track.streamIndex) {
                    av_packet_unref(packet.get());
                    continue;
                }
                result = avcodec_send_packet(m_codec, packet.get());
                av_packet_unref(packet.get());
                if (result < 0 && result != AVERROR(EAGAIN)) {
                    ++m_errors; // a broken packet: go on with the next
                    continue;
                }
            }
        }
        while (!stop) {
            result = avcodec_receive_frame(m_codec, frame.get());
            if (result == AVERROR(EAGAIN))
                break;
            if (result < 0) {
                if (result != AVERROR_EOF)
                    ++m_errors;
                if (draining)
                    stop = true;
                break;
            }
            if (!emitFrame(frame.get(), endSample, sink, &stop))
                stop = true;
            av_frame_unref(frame.get());
        }
        if (draining && !stop)
            break;
    }
    (void)startSample;
    return m_position < 0 ? startSample : std::min(m_position, endSample);
}

} // namespace AudioDecoding
